#include "launch/directplay/registry_service.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <map>
#include <vector>

namespace ombrin::directplay {

namespace {

using Machine = RegistryService::Machine;

/// The values under which an application has registered its program.
constexpr RegistryService::ProgramValues kProgram{"ExecutableFilename", "ExecutablePath"};

class LobbyClient : public DirectPlay8LobbyClient {
public:
    explicit LobbyClient(const Machine& machine) : machine(machine) {}

    void RegisterMessageHandler(DirectPlay8LobbyEvent&) override {} // the layer has nothing to tell
    int GetCountLocalPrograms(std::string_view) override { return static_cast<int>(Programs().size()); }
    ApplicationInfo GetLocalProgram(int index) override {
        const auto programs = Programs();
        return programs[RegistryService::Position(index, programs.size())];
    }
    long ConnectApplication(const ConnectInfo& info, long timeout, long) override {
        const ConnectionSettings& settings = info.settings;
        ApplicationStart start{"ConnectApplication",
                               {{"application", info.guidApplication},
                                {"session", settings.description.sessionName},
                                {"instance", settings.description.guidInstance},
                                {"sessionFlags", std::int64_t{settings.description.flags}},
                                {"maxPlayers", std::int64_t{settings.description.maxPlayers}},
                                {"address", settings.hostAddress},
                                {"player", settings.playerName},
                                {"connectionFlags", std::int64_t{settings.flags}},
                                {"infoFlags", std::int64_t{info.flags}},
                                {"timeout", std::int64_t{timeout}}}};
        machine.AddProgram(start, Join(kApplications8, "\\", info.guidApplication), kProgram);
        return machine.applications.Run(start);
    }
    void ReleaseApplication(long handle) override {
        if (handle <= 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    void Close() override {}

private:
    /// A key without a name is no application: in a list of names an empty one would be the end.
    std::vector<ApplicationInfo> Programs() const {
        std::vector<ApplicationInfo> programs;
        for (const std::string& guid : machine.registry.Subkeys(kApplications8))
            if (std::string name = machine.Text(Join(kApplications8, "\\", guid), "ApplicationName"); !name.empty())
                programs.push_back({guid, std::move(name)});
        return programs;
    }

    Machine machine;
};

class Address : public DirectPlay8Address {
public:
    void SetSP(std::string_view name) override { provider = name; }
    void AddComponentString(std::string_view name, std::string_view value) override {
        components.insert_or_assign(std::string(name), std::string(value));
    }
    void AddComponentLong(std::string_view name, long value) override {
        components.insert_or_assign(std::string(name), std::int64_t{value});
    }

    std::string provider;
    std::map<std::string, ApplicationStart::Value, std::less<>> components;
};

class Peer : public DirectPlay8Peer {
public:
    explicit Peer(const Machine& machine) : machine(machine) {}

    /// The application itself connects: it is started with the address of the host.
    void Connect(const ApplicationDescription& description, const DirectPlay8Address& host, const DirectPlay8Address&,
                 long, std::string_view userData) override {
        ApplicationStart start{"Connect", {{"application", description.guidApplication}}};
        for (const auto& component : dynamic_cast<const Address&>(host).components) start.session.push_back(component);
        start.session.emplace_back("player", std::string(userData));
        machine.AddProgram(start, Join(kApplications8, "\\", description.guidApplication), kProgram);
        machine.applications.Run(start);
    }

private:
    Machine machine;
};

class X8 : public DirectX8 {
public:
    explicit X8(const Machine& machine) : machine(machine) {}
    std::unique_ptr<DirectPlay8LobbyClient> DirectPlayLobbyClientCreate() override {
        return std::make_unique<LobbyClient>(machine);
    }
    std::unique_ptr<DirectPlay8Peer> DirectPlayPeerCreate() override { return std::make_unique<Peer>(machine); }
    std::unique_ptr<DirectPlay8Address> DirectPlayAddressCreate() override { return std::make_unique<Address>(); }

private:
    Machine machine;
};

} // namespace

std::unique_ptr<DirectX8> RegistryService::CreateDirectX8() {
    CheckPresence();
    return std::make_unique<X8>(machine);
}

} // namespace ombrin::directplay
