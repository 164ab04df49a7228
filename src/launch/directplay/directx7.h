// DirectPlay as its DirectX 7 interface has it: what a launch needs, under the published names. Descriptions are
// records whose fields stand for the Set operations; the service reads them when it is asked to run an application.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace ombrin::directplay {

inline constexpr long kSessionMigrateHost = 4; ///< DPSESSION_MIGRATEHOST
inline constexpr long kSessionKeepAlive = 64;  ///< DPSESSION_KEEPALIVE
inline constexpr long kJoinSession = 1;        ///< DPLCONNECTION_JOINSESSION
inline constexpr long kCreateSession = 2;      ///< DPLCONNECTION_CREATESESSION
inline constexpr long kDirectPlay = 1;         ///< DPCONNECTION_DIRECTPLAY

/// What is registered, by an index from 1. Raises 9 for another index.
class Enumeration {
public:
    virtual ~Enumeration() = default;
    virtual int GetCount() const = 0;
    virtual std::string GetName(int index) const = 0;
    virtual std::string GetGuid(int index) const = 0; ///< with its braces
};

struct SessionData {
    std::string guidApplication, guidInstance, sessionName;
    long flags = 0, maxPlayers = 0;
};

struct INetAddress {
    std::string address;
    int port = 0;
};

struct LobbyConnection {
    INetAddress address;
    std::string playerShortName, playerLongName, guidSP;
    SessionData sessionDesc;
    long flags = 0;
};

class DirectPlayLobby3 {
public:
    virtual ~DirectPlayLobby3() = default;
    virtual std::unique_ptr<Enumeration> GetDPEnumLocalApplications() = 0;
    virtual LobbyConnection CreateConnectionData() { return {}; }
    virtual INetAddress CreateINetAddress(std::string_view address, int port) { return {std::string(address), port}; }
    /// Starts the application and does not wait for it; its handle. Raises 53 when it cannot be found.
    virtual long RunApplication(const LobbyConnection& connection, long flags) = 0;
};

class DirectPlay4 {
public:
    virtual ~DirectPlay4() = default;
    virtual std::unique_ptr<Enumeration> GetDPEnumConnections(std::string_view guid, long flags) = 0;
    virtual SessionData CreateSessionData() { return {}; }
};

class DirectX7 {
public:
    virtual ~DirectX7() = default;
    virtual std::unique_ptr<DirectPlayLobby3> DirectPlayLobbyCreate() = 0;
    virtual std::unique_ptr<DirectPlay4> DirectPlayCreate(std::string_view guid) = 0;
};

} // namespace ombrin::directplay
