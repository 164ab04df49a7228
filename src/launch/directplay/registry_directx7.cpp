#include "launch/directplay/registry_service.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

namespace ombrin::directplay {

namespace {

using Machine = RegistryService::Machine;

class Registered : public Enumeration {
public:
    Registered(const Machine& machine, std::string_view key) {
        for (const std::string& name : machine.registry.Subkeys(key))
            entries.push_back({name, machine.Text(Join(key, "\\", name), "Guid")});
    }
    int GetCount() const override { return static_cast<int>(entries.size()); }
    std::string GetName(int index) const override {
        return entries[RegistryService::Position(index, entries.size())].name;
    }
    std::string GetGuid(int index) const override {
        return entries[RegistryService::Position(index, entries.size())].guid;
    }

private:
    struct Entry {
        std::string name, guid;
    };
    std::vector<Entry> entries;
};

/// The values under which an application has registered its program.
constexpr RegistryService::ProgramValues kProgram{"File", "Path"};

class Lobby : public DirectPlayLobby3 {
public:
    explicit Lobby(const Machine& machine) : machine(machine) {}

    std::unique_ptr<Enumeration> GetDPEnumLocalApplications() override {
        return std::make_unique<Registered>(machine, kApplications);
    }
    long RunApplication(const LobbyConnection& connection, long) override {
        const SessionData& session = connection.sessionDesc;
        ApplicationStart start{"RunApplication",
                               {{"application", session.guidApplication},
                                {"provider", connection.guidSP},
                                {"session", session.sessionName},
                                {"instance", session.guidInstance},
                                {"sessionFlags", std::int64_t{session.flags}},
                                {"maxPlayers", std::int64_t{session.maxPlayers}},
                                {"address", connection.address.address},
                                {"port", std::int64_t{connection.address.port}},
                                {"player", connection.playerLongName},
                                {"connectionFlags", std::int64_t{connection.flags}}}};
        const Registered applications(machine, kApplications);
        for (int i = 1; i <= applications.GetCount(); ++i)
            if (applications.GetGuid(i) == session.guidApplication)
                machine.AddProgram(start, Join(kApplications, "\\", applications.GetName(i)), kProgram);
        return machine.applications.Run(start);
    }

private:
    Machine machine;
};

class Play4 : public DirectPlay4 {
public:
    explicit Play4(const Machine& machine) : machine(machine) {}
    std::unique_ptr<Enumeration> GetDPEnumConnections(std::string_view, long) override {
        return std::make_unique<Registered>(machine, kProviders);
    }

private:
    Machine machine;
};

class X7 : public DirectX7 {
public:
    explicit X7(const Machine& machine) : machine(machine) {}
    std::unique_ptr<DirectPlayLobby3> DirectPlayLobbyCreate() override { return std::make_unique<Lobby>(machine); }
    std::unique_ptr<DirectPlay4> DirectPlayCreate(std::string_view) override {
        return std::make_unique<Play4>(machine);
    }

private:
    Machine machine;
};

} // namespace

std::unique_ptr<DirectX7> RegistryService::CreateDirectX7() {
    CheckPresence();
    return std::make_unique<X7>(machine);
}

} // namespace ombrin::directplay
