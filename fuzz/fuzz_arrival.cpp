// A logged-on client under arrivals that are cut anywhere. In the input, the byte 255 ends an arrival; what is left of
// the input arrives nested while forms are open, and a user who presses the first button closes them at the end. An
// arrival that begins with the byte 254 is a press of the user instead.
#include "fuzzed_client.h"

#include "foundation/runtime_error.h"

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
        const std::string_view arrival = TakePiece();
        if (arrival.size() > 1 && arrival.front() == '\xFE')
            Press(static_cast<unsigned char>(arrival[1]));
        else if (!arrival.empty())
            server.Sends(arrival);
        return true;
    }

    /// One of the things that a user does in a lobby and with rooms; the door refuses what he could not.
    void Press(unsigned what) {
        UserInput& input = client.Input();
        View& view = client.MainView();
        Dialogs& forms = client.Forms();
        int enter = UserInput::kEnter;
        switch (what % 16) {
        case 0:
            input.Click(view.Create);
            break;
        case 1:
            input.Click(view.Enter);
            break;
        case 2:
            input.Click(view.Leave);
            break;
        case 3:
            input.Click(view.Destroy);
            break;
        case 4:
            input.Click(view.PM);
            break;
        case 5:
            input.Click(view.btnAddBuddy);
            break;
        case 6:
            input.Click(view.btnRemoveBuddy);
            break;
        case 7:
            input.DoubleClick(view.RoomList, 0);
            break;
        case 8:
            input.DoubleClick(view.lbLobbies, 1);
            break;
        case 9:
            input.RightClick(view.RoomUserList, 1), input.Choose(view.RejectUserMenu);
            break;
        case 10:
            input.Type(view.RoomText, "hi"), input.Key(view.RoomText, enter, 0);
            break;
        case 11:
            input.Type(forms.NewRoom.NewRoomName, "Base"), input.Click(forms.NewRoom.OKButton);
            break;
        case 12:
            input.Type(forms.RoomPassword.Password, "gold"), input.Click(forms.RoomPassword.OKButton);
            break;
        case 13:
            input.Type(forms.PMDialog.PrivateMessage, "psst"), input.Click(forms.PMDialog.PMSend);
            break;
        case 14:
            input.AnswerText("zed");
            break;
        default:
            client.CloseSocket();
        }
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

} // namespace ombrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ombrin::fuzz::FuzzedLobby(ombrin::fuzz::AsText(data, size)).Run();
    return 0;
}
