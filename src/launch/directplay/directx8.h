// DirectPlay 8 as its DirectX 8 interface has it: what a launch needs, under the published names.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace ombrin::directplay {

inline constexpr long kMigrateHost = 4;     ///< DPNSESSION_MIGRATE_HOST
inline constexpr long kConnectAsHost = 1;   ///< DPLCONNECTSETTINGS_HOST
inline constexpr long kLaunchNew = 1;       ///< DPLCONNECT_LAUNCHNEW
inline constexpr long kWaitWithoutEnd = -1; ///< as a time-out

/// DPL_APPLICATION_INFO
struct ApplicationInfo {
    std::string guidApplication, ApplicationName;
};

/// DPN_APPLICATION_DESC
struct ApplicationDescription {
    long flags = 0;
    std::string guidInstance, guidApplication;
    long maxPlayers = 0;
    std::string sessionName;
};

/// DPL_CONNECTION_SETTINGS
struct ConnectionSettings {
    long flags = 0;
    ApplicationDescription description;
    std::string playerName, hostAddress, deviceAddress;
};

/// DPL_CONNECT_INFO
struct ConnectInfo {
    long flags = 0;
    std::string guidApplication;
    ConnectionSettings settings;
};

/// What a lobby client tells its handler; the arguments are the service's, and nothing here looks at them.
class DirectPlay8LobbyEvent {
public:
    virtual ~DirectPlay8LobbyEvent() = default;
    virtual void DirectPlay8LobbyEvent_Connect() {}
    virtual void DirectPlay8LobbyEvent_ConnectionSettings() {}
    virtual void DirectPlay8LobbyEvent_Disconnect() {}
    virtual void DirectPlay8LobbyEvent_Receive() {}
    virtual void DirectPlay8LobbyEvent_SessionStatus() {}
};

/// What a peer tells its handler.
class DirectPlay8Event {
public:
    virtual ~DirectPlay8Event() = default;
    virtual void DirectPlay8Event_AddRemovePlayerGroup() {}
    virtual void DirectPlay8Event_AppDesc() {}
    virtual void DirectPlay8Event_AsyncOpComplete() {}
    virtual void DirectPlay8Event_ConnectComplete() {}
    virtual void DirectPlay8Event_CreateGroup() {}
    virtual void DirectPlay8Event_CreatePlayer() {}
    virtual void DirectPlay8Event_DestroyGroup() {}
    virtual void DirectPlay8Event_DestroyPlayer() {}
    virtual void DirectPlay8Event_EnumHostsQuery() {}
    virtual void DirectPlay8Event_EnumHostsResponse() {}
    virtual void DirectPlay8Event_HostMigrate() {}
    virtual void DirectPlay8Event_IndicateConnect() {}
    virtual void DirectPlay8Event_IndicatedConnectAborted() {}
    virtual void DirectPlay8Event_InfoNotify() {}
    virtual void DirectPlay8Event_Receive() {}
    virtual void DirectPlay8Event_SendComplete() {}
    virtual void DirectPlay8Event_TerminateSession() {}
};

/// The form that takes the calls back: a lobby client wants a handler, and nothing depends on what it does.
class frmDirectPlay final : public DirectPlay8LobbyEvent, public DirectPlay8Event {};

class DirectPlay8LobbyClient {
public:
    virtual ~DirectPlay8LobbyClient() = default;
    /// The handler outlives the registration, which Close ends.
    virtual void RegisterMessageHandler(DirectPlay8LobbyEvent& handler) = 0;
    /// Programs of a service provider, of all with "".
    virtual int GetCountLocalPrograms(std::string_view guidServiceProvider) = 0;
    /// By an index from 1. Raises 9 for another index.
    virtual ApplicationInfo GetLocalProgram(int index) = 0;
    /// Starts the application; its handle. Raises 53 when it cannot be found.
    virtual long ConnectApplication(const ConnectInfo& info, long timeout, long flags) = 0;
    /// Raises 5 for a handle that is none.
    virtual void ReleaseApplication(long handle) = 0;
    virtual void Close() = 0;
};

class DirectPlay8Address {
public:
    virtual ~DirectPlay8Address() = default;
    virtual void SetSP(std::string_view provider) = 0;
    virtual void AddComponentString(std::string_view name, std::string_view value) = 0;
    virtual void AddComponentLong(std::string_view name, long value) = 0;
};

class DirectPlay8Peer {
public:
    virtual ~DirectPlay8Peer() = default;
    virtual void Connect(const ApplicationDescription& description, const DirectPlay8Address& host,
                         const DirectPlay8Address& device, long flags, std::string_view userData) = 0;
};

class DirectX8 {
public:
    virtual ~DirectX8() = default;
    virtual std::unique_ptr<DirectPlay8LobbyClient> DirectPlayLobbyClientCreate() = 0;
    virtual std::unique_ptr<DirectPlay8Peer> DirectPlayPeerCreate() = 0;
    virtual std::unique_ptr<DirectPlay8Address> DirectPlayAddressCreate() = 0;
};

} // namespace ombrin::directplay
