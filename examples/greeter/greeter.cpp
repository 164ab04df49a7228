// A bot that greets whoever enters its lobby: greeter HOME USER LOBBY HOST PORT
#include <iostream>
#include <ombrin/game_lobby.h>
#include <set>

using namespace ombrin::host;

namespace {

class Greeter {
public:
    Greeter(Machine& machine, std::string own) : machine(machine), lobby(machine), own(std::move(own)) {
        lobby.View().Changed = [this](const std::string& control) {
            if (control == "UserList") GreetNewcomers();
        };
        lobby.View().FormShown = [this](const std::string& form) {
            if (form == "ChooseLanguage" && !lobby.View().Click("ChooseLanguage.OKButton"))
                return;                                                  // at its first start
            std::cerr << form << ": " << lobby.View().BoxText() << "\n"; // whatever it is, nobody is here to answer
            this->machine.RequestEnd();
        };
    }
    void Enter(const std::string& name, const std::string& host, const std::string& port) {
        lobby.Show(own + ";" + name + ";" + host + ";" + port);
    }

private:
    /// Those who were there before the bot, and those whom it has greeted, are left in peace.
    void GreetNewcomers() {
        const auto list = lobby.View().Read("UserList");
        std::set<std::string> present;
        for (const auto& row : list->rows) present.insert(row.front());
        if (!present.contains(own)) return;
        if (known.empty()) std::cout << own << " is in " << lobby.m_CurrentLobby() << std::endl;
        for (const std::string& user : present)
            if (!known.empty() && !known.contains(user)) Say("Welcome, " + user + "!");
        known = std::move(present);
    }
    void Say(const std::string& line) {
        auto refusal = lobby.View().Type("MainText", line);
        if (!refusal) refusal = lobby.View().Click("SendMain");
        std::cout << (refusal ? "refused: " + *refusal : line) << std::endl;
    }

    Machine& machine;
    GameLobby lobby;
    const std::string own;
    std::set<std::string> known;
};

} // namespace

int main(int argc, char** argv) try {
    if (argc != 6) return std::cerr << "usage: greeter HOME USER LOBBY HOST PORT\n", 2;
    Machine machine({.home = argv[1]});
    machine.EndOnSignals();
    Greeter greeter(machine, argv[2]);
    greeter.Enter(argv[3], argv[4], argv[5]);
    machine.Run();
} catch (const std::exception& error) {
    std::cerr << "greeter: " << error.what() << "\n";
    return 1;
}
