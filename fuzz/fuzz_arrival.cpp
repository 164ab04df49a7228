// A logged-on client under arrivals that are cut anywhere. In the input, the byte 255 ends an arrival; what is left of
// the input arrives nested while forms are open, and a user who presses the first button closes them at the end. An
// arrival that begins with the byte 254 is a press of the user instead.
#include "fuzzed_client.h"

#include "foundation/runtime_error.h"

#include <functional>
#include <iterator>
#include <string>

namespace ombrin::fuzz {

namespace {

class FuzzedLobby : private FuzzedClient {
public:
    explicit FuzzedLobby(std::string_view input) : FuzzedClient(input, kPresses) {}

    void Run() {
        client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "English");
        world.loop.Post([this] { client.UserControl_Show(std::nullopt); });
        PlayOut(client);
    }

private:
    static constexpr int kPresses = 200; ///< a user's patience

    bool Feed() override {
        auto& server = world.network.Named("Winsock");
        if (server.State() == SocketState::Connecting) return server.Accept(), true;
        if (input.empty() || IsHeld() || !server.IsConnected()) return false;
        const std::string_view arrival = TakePiece(input);
        if (arrival.size() > 1 && arrival.front() == '\xFE')
            Press(static_cast<unsigned char>(arrival[1]));
        else if (!arrival.empty())
            server.Sends(arrival);
        return true;
    }

    /// One of the things that a user does in a lobby and with rooms; the door refuses what he could not.
    void Press(unsigned what) {
        UserInput& user = client.Input();
        View& view = client.MainView();
        NewRoom& naming = client.Forms().NewRoom;
        RoomPassword& asking = client.Forms().RoomPassword;
        PMDialog& message = client.Forms().PMDialog;
        int enter = UserInput::kEnter;
        const std::function<void()> presses[] = {
            [&] { user.Click(view.Create); },
            [&] { user.Click(view.Enter); },
            [&] { user.Click(view.Leave); },
            [&] { user.Click(view.Destroy); },
            [&] { user.Click(view.PM); },
            [&] { user.Click(view.btnAddBuddy); },
            [&] { user.Click(view.btnRemoveBuddy); },
            [&] { user.DoubleClick(view.RoomList, 0); },
            [&] { user.DoubleClick(view.lbLobbies, 1); },
            [&] { user.RightClick(view.RoomUserList, 1), user.Choose(view.RejectUserMenu); },
            [&] { user.Type(view.RoomText, "hi"), user.Key(view.RoomText, enter, 0); },
            [&] { user.Type(naming.NewRoomName, "Base"), user.Click(naming.OKButton); },
            [&] { user.Type(asking.Password, "gold"), user.Click(asking.OKButton); },
            [&] { user.Type(message.PrivateMessage, "psst"), user.Click(message.PMSend); },
            [&] { user.AnswerText("zed"); },
            [&] { client.CloseSocket(); },
        };
        presses[what % std::size(presses)]();
    }

    void Press(Form& top) override {
        UserInput& input = client.Input();
        Dialogs& forms = client.Forms();
        if (&top == &forms.UsrNmPwIP) {
            input.Type(forms.UsrNmPwIP.LogonName, "ann");
            input.Type(forms.UsrNmPwIP.HostMachine, "lobby.example");
            input.Click(forms.UsrNmPwIP.Connect);
        } else if (&top == &forms.LobbyFilter) {
            input.Click(forms.LobbyFilter.SelectAll);
            if (!input.Click(forms.LobbyFilter.OK) && top.Visible()) client.Stack().RequestEnd(); // no lobby to choose
        } else if (&top == &forms.ExeMainLobby) {
            input.Click(forms.ExeMainLobby.ExeGameSelect);
        } else if (input.Close(top) && input.PressButton(BoxResult::No)) {
            Require(false, "every form can be closed");
        }
    }

    GameLobby client{world.ForClient(*this)};
};

} // namespace

void Try(std::string_view input) { FuzzedLobby(input).Run(); }

} // namespace ombrin::fuzz
