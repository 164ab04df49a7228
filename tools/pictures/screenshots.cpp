// ombrin-screenshots FOLDER LANGUAGE WIDTH HEIGHT [SKIN]: pictures of the main view and of every dialog, in one
// language at one size, made from the real windows over a played server. Fails where a text in them cannot be read.
#include "desktop/stage.h"
#include "hosts/desktop/look.h"
#include "hosts/desktop/qt_pictures.h"
#include "hosts/skin/skin.h"
#include "pictures/photographer.h"
#include "session/wire/codec.h"
#include "ui/skin_slots.h"

#include <QApplication>
#include <QDir>
#include <cstdio>

namespace ombrin::test {

namespace {

const char* const kNames[] = {"Ann",    "Bob",   "Cid",    "Dörte", "Eve",   "François", "Gus",
                              "Hélène", "Ivo",   "Jürgen", "Kim",   "Lars",  "Mia",      "Noël",
                              "Otto",   "Paula", "Quinn",  "Rosa",  "Søren", "Tom",      "Ulrike",
                              "Vito",   "Wanda", "Xaver",  "Yves",  "Zoë",   "Åsa",      "Big Bad Wolf"};

std::string Held(const QString& text) { return *CodePage::Usual().FromUtf8(text.toStdString()); }

std::string Users() {
    std::string message = "0:";
    int i = 0;
    for (const char* name : kNames) message += Held(QString::fromUtf8(name)) + ";" + std::to_string(1 + i++ % 3) + ";";
    return message + "~";
}

std::string Chat() {
    const std::pair<const char*, const char*> kLines[] = {
        {"Ardvelle", "Good evening, and have fun!"},
        {"Bob", "Anybody for a game of Go? I have about an hour before the trains stop running, and I would rather not "
                "spend it on the crossword."},
        {"Eve", "In ten minutes, gladly."},
        {"Jürgen", "Grüße aus Köln! Wer spielt mit?"},
        {"Hélène", "J'arrive dès que j'ai fini mon café."},
        {"Bob", "The rules are at https://ardvelle.example/rules, if you need them."},
        {"Zoë", "See you in the room :)"},
    };
    std::string message = "1:";
    for (const auto& [sender, line] : kLines)
        message += Held(QString::fromUtf8(sender)) + ":" + EncodeData(Held(QString::fromUtf8(line))) + ":;";
    return message + "~";
}

/// From the lobby that the view waits for: a preview, a room as a member and as its creator, private messages.
void TakeRooms(Stage& stage, Photographer& photographer) {
    View& view = stage.view;
    Dialogs& forms = stage.forms;
    const auto press = [&stage](Button& button) {
        stage.Step([&] { stage.board.Input([&](UserInput& input) { return input.Click(button); }); });
    };
    const auto type = [&stage](TextBox& box, std::string text) {
        stage.Step(
            [&stage, &box, text] { stage.board.Input([&](UserInput& input) { return input.Type(box, text); }); });
    };
    const auto ok = [&stage] {
        stage.Step([&stage] { stage.loop.Enter([&stage] { stage.client.Input().PressButton(BoxResult::Ok); }); });
    };
    stage.world.pings.answers = {{"10.0.0.2", 150}, {"10.0.0.3", 400}};
    stage.Sends("22:Quake3,31;Go,28;Chess,112;~");
    stage.Sends(Users() +
                "2:Arena;1;10.0.0.1;3;8;Locked Room;4;10.0.0.2;2;4;Match;2;10.0.0.3;8;8;The longest name that "
                "a room can have here;4;;31;32;~");
    stage.Sends("41:Bob;Go;Kim;;Zo\xEB;Chess;Big Bad Wolf;Half Life;Otto;;~");
    photographer.TakesMenu(view.RoomList, 0, QStringLiteral("16-room-menu"));
    stage.Sends("3:Bob;10.0.0.1;Y;Eve;10.0.0.2;N;J\xFCrgen;10.0.0.3;Y;~");
    photographer.Takes(QStringLiteral("17-preview"));
    press(view.Enter);
    photographer.TakesWaiting(QStringLiteral("18-entering"));
    stage.Sends("34:~");
    photographer.Takes(QStringLiteral("19-room-password"));
    type(forms.RoomPassword.Password, "secret");
    press(forms.RoomPassword.OKButton);
    stage.Sends("7:Bob;~3:Ann;10.0.0.9;N;~4:Bob:The password was easy to guess, was it not? I shall take a longer one "
                "next time.:;Eve:Hello:;~");
    type(view.RoomText, "Hello, both of you! What do we play, and for how long?");
    press(view.SendRoom);
    type(view.MainText, "Back in an hour.");
    press(view.SendMain);
    photographer.Takes(QStringLiteral("20-member"));
    stage.Sends("42:~");
    photographer.Takes(QStringLiteral("21-box-rejected"));
    ok();
    press(view.Create);
    photographer.Takes(QStringLiteral("22-new-room"));
    stage.Step(
        [&] { stage.board.Input([&](UserInput& input) { return input.Check(forms.NewRoom.PasswordRoom, true); }); });
    type(forms.NewRoom.NewRoomName, "Tea time");
    stage.Step(
        [&] { stage.board.Input([&](UserInput& input) { return input.Select(forms.NewRoom.MaxUsers, 6, true); }); });
    photographer.Takes(QStringLiteral("23-new-room-password"));
    stage.Clicks(forms.NewRoom.MaxUsers);
    photographer.TakesPopup(QStringLiteral("23-new-room-users"));
    type(forms.NewRoom.Password, "secret");
    press(forms.NewRoom.OKButton);
    stage.Sends("5:Ann;10.0.0.9;N;~2:Tea time;4;10.0.0.9;1;8;~");
    stage.Sends("3:Bob;10.0.0.1;Y;Eve;10.0.0.2;N;~4:Bob:There you are.:;~");
    photographer.Takes(QStringLiteral("24-creator"));
    photographer.TakesMenu(view.RoomUserList, 1, QStringLiteral("25-room-users-menu"));
    photographer.TakesMenu(view.BuddyLV, 1, QStringLiteral("26-buddy-menu"));
    press(view.Destroy);
    photographer.Takes(QStringLiteral("27-box-destroy"));
    stage.Step([&stage] { stage.loop.Enter([&stage] { stage.client.Input().PressButton(BoxResult::Yes); }); });
    stage.Sends("10:~");
    stage.Sends("35:Eve;Eve:Are you coming back? We have kept your place, and Bob has made coffee for everybody.:;~");
    type(forms.PMDialog.PrivateMessage, "In a minute");
    stage.Sends("35:Ann;Ann:In a minute.:;~35:Bob;Bob:The rules are at https\x25*|@//ardvelle.example/rules:;~");
    photographer.Takes(QStringLiteral("28-private-messages"));
    type(forms.PMDialog.User, "Ann");
    press(forms.PMDialog.PMSend);
    type(forms.PMDialog.PrivateMessage, "To myself");
    press(forms.PMDialog.PMSend);
    photographer.Takes(QStringLiteral("29-box-to-yourself"));
    ok();
    press(forms.PMDialog.OKButton);
    photographer.Takes(QStringLiteral("30-back-in-the-lobby"));
}

/// What a button of the dialog in front opens.
void TakeChooser(Stage& stage, Photographer& photographer, Button& button, const QString& name) {
    stage.Step([&] { stage.board.Input([&](UserInput& input) { return input.Click(button); }); });
    photographer.Takes(name);
    stage.Step(
        [&] { stage.board.Input([&](UserInput& input) { return input.Close(*stage.client.Stack().TopModal()); }); });
}

/// Without a game where no lobby was entered yet.
void TakeConfiguration(Stage& stage, Photographer& photographer, const QString& name) {
    ConfigureGame& dialog = stage.forms.ConfigureGame;
    stage.Step([&stage] { stage.loop.Enter([&stage] { stage.client.Configure_Click(); }); });
    photographer.Takes(name);
    stage.Step([&] { stage.board.Input([&](UserInput& input) { return input.Click(dialog.CancelButton); }); });
}

void TakeGame(Stage& stage, Photographer& photographer) {
    const auto press = [&stage](Button& button) {
        stage.Step([&] { stage.board.Input([&](UserInput& input) { return input.Click(button); }); });
    };
    Dialogs& forms = stage.forms;
    stage.Step([&stage] {
        const std::string& lobby = stage.client.Marks().m_CurrentLobby;
        stage.client.Store().SaveSetting("Games", lobby, R"(C:\Program Files\Sierra\Half-Life\HL.EXE)");
        stage.client.Store().SaveSetting("DirectPlay", lobby, "Half-Life");
        stage.client.Inis().Write("AV.ini", "HL", "ClientOptions", "-console -game valve");
        stage.forms.ConfigureGame.DPGameList = "Age of Sail;Half-Life;";
    });
    TakeConfiguration(stage, photographer, QStringLiteral("31-configure"));
    stage.Step([&stage] { stage.loop.Enter([&stage] { stage.client.Configure_Click(); }); });
    TakeChooser(stage, photographer, forms.ConfigureGame.BrowseGames, QStringLiteral("31-configure-browse"));
    TakeChooser(stage, photographer, forms.ConfigureGame.btnTextColor, QStringLiteral("31-configure-colour"));
    press(forms.ConfigureGame.About);
    photographer.Takes(QStringLiteral("32-about"));
    press(forms.frmAbout.cmdOK);
    press(forms.ConfigureGame.CancelButton);
    for (int which = 0; which < 6; ++which) { // the route counts only where the game is configured
        stage.Step([&stage, which] {
            PauseAV& pause = stage.forms.PauseAV;
            pause.AutoStartOn = which < 4;
            pause.UsesDirectPlay = which < 2;
            pause.IsCreator = which % 2 == 0;
            stage.loop.Enter([&pause] { pause.ShowModal(); });
        });
        photographer.Takes(QStringLiteral("33-game-launched-%1").arg(which + 1));
        press(forms.PauseAV.ResumeButton);
    }
    stage.Step([&stage, &forms] { // over the main window instead of beside it, for the picture
        forms.FindingGame.txtFindDir.SetCaption(R"(C:\Program Files\Sierra)");
        stage.loop.Enter([&forms] { forms.FindingGame.ShowModal(); });
    });
    photographer.Takes(QStringLiteral("34-finding-game"));
    stage.Step([&stage, &forms] { stage.loop.Enter([&forms] { forms.FindingGame.Hide(); }); });
}

/// The skin that the client wears; its folder stands in place of the client's own.
class Wardrobe : public Pictures {
public:
    explicit Wardrobe(skin::Skin skin) : skin(std::move(skin)) {}
    desktop::Look::Wishes Wishes() const { return {desktop::Scheme::Of(skin.scheme), skin.captions == "1"}; }

    void Dress(Stage& stage) {
        stage.world.pictures.shown = this;
        appPath = stage.world.places.AppPath();
        Settings& store = stage.client.Store();
        for (const skin::Skin::Slot& slot : skin.pictures)
            store.SaveSetting(skin::kStoreSection, slot.key, "/" + slot.file);
        Colours(store, skin::kStoreSection, skin::kLabelTextColor, skin.labelTextColor);
        Colours(store, "Settings", "TextColor", skin.textColor);
    }

    std::shared_ptr<const LoadedPicture> LoadPicture(const std::string& path) override {
        return files.LoadPicture(skin.folder + path.substr(appPath.size()));
    }

private:
    static void Colours(Settings& store, std::string_view section, std::string_view key,
                        const std::optional<Colour>& colour) {
        if (colour) store.SaveSetting(section, key, std::to_string(*colour));
    }

    skin::Skin skin;
    std::string appPath;
    desktop::QtPictures files{CodePage::Usual()};
};

/// The transfer's server and the user's answers to boxes. Its steps may run when it is gone.
struct Download {
    Stage& stage;

    void Does(std::function<void()> act) const {
        stage.Step([*this, act] { stage.loop.Enter(act); });
    }
    void Answers(BoxResult result) const {
        Does([*this, result] { stage.client.Input().PressButton(result); });
    }
    void Accepts() const {
        Does([*this] { Socket().Accept(); });
    }
    void Sends(std::size_t bytes) const {
        Does([*this, bytes] { Socket().Sends(std::string(bytes, 'x')); });
    }
    recording::PlayedSocket& Socket() const { return stage.world.network.Named("FileTransferSocket"); }
};

/// Lists that cannot be used, and a download from the question to the end of the client.
void TakeUpdate(Stage& stage, Photographer& photographer, const Download& download) {
    const std::string list = "50:updates.ardvelle.example;9001;";
    stage.Sends(list + "../.bashrc;10;3;1.0;~");
    photographer.Takes(QStringLiteral("35-update-bad-name"));
    download.Answers(BoxResult::Ok);
    stage.Step([&stage] { stage.world.localFiles.room = 1'000; });
    stage.Sends(list + "Readme.txt;1001;3;1.0;~");
    photographer.Takes(QStringLiteral("36-update-no-room"));
    download.Answers(BoxResult::Ok);
    stage.Sends(list + "One.txt;100;3;1.0;Two.txt;100;3;1.0;Three.txt;0;3;1.0;~");
    photographer.Takes(QStringLiteral("37-update-question"));
    download.Answers(BoxResult::Ok);
    photographer.TakesWaiting(QStringLiteral("38-update-connecting"));
    download.Accepts();
    photographer.Takes(QStringLiteral("39-update-first-file"));
    download.Sends(100);
    download.Sends(37);
    photographer.Takes(QStringLiteral("40-update-second-file"));
    download.Sends(63);
    photographer.Takes(QStringLiteral("41-update-complete"));
    stage.Step([&stage] { stage.world.processes.starts = {false}; });
    stage.Presses(Qt::Key_Return);
    photographer.Takes(QStringLiteral("42-update-no-patcher"));
    download.Answers(BoxResult::Ok);
    photographer.TakesWaiting(QStringLiteral("43-update-left"));
}

/// The other end, by which the client is gone.
void TakeCancel(Stage& stage, Photographer& photographer) {
    const Download download{stage};
    stage.Sends("50:updates.ardvelle.example;9001;One.txt;100;3;1.0;~");
    download.Answers(BoxResult::Ok);
    download.Accepts();
    stage.Presses(Qt::Key_Escape);
    photographer.Takes(QStringLiteral("44-update-canceled"));
}

void TakeLostConnection(Stage& stage, Photographer& photographer) {
    stage.Step([&stage] { stage.loop.Enter([&stage] { stage.Server().CloseByPeer(); }); });
    photographer.Takes(QStringLiteral("45-connection-lost"));
}

/// An evening of its own, as the client does not come back from what happens.
bool RunFromTheLobby(const QStringList& arguments, Wardrobe& wardrobe, void (*take)(Stage&, Photographer&)) {
    Stage stage("");
    wardrobe.Dress(stage);
    stage.Speaks(Held(arguments[2]));
    stage.window.resize(arguments[3].toInt(), arguments[4].toInt());
    Photographer photographer(stage, arguments[1]);
    stage.LogsOn();
    take(stage, photographer);
    return stage.Run() && photographer.IsContent();
}

int Run(QApplication& application, const QStringList& arguments) {
    const QString folder = arguments[1];
    const std::string language = Held(arguments[2]);
    QDir().mkpath(folder);
    Wardrobe wardrobe(arguments.size() > 5 ? skin::ReadSkin(arguments[5].toStdString()) : skin::Skin());
    desktop::Look::Install(application, wardrobe.Wishes());
    bool content = RunFromTheLobby(arguments, wardrobe, TakeCancel);
    content = RunFromTheLobby(arguments, wardrobe, TakeLostConnection) && content;
    Stage stage("");
    wardrobe.Dress(stage);
    stage.Speaks("");
    stage.window.resize(arguments[3].toInt(), arguments[4].toInt());

    Photographer photographer(stage, folder);
    const auto press = [&stage](Button& button) {
        stage.Step([&] { stage.board.Input([&](UserInput& input) { return input.Click(button); }); });
    };
    const auto type = [&stage](TextBox& box, std::string text) {
        stage.Step(
            [&stage, &box, text] { stage.board.Input([&](UserInput& input) { return input.Type(box, text); }); });
    };
    const auto call = [&stage](std::function<void()> work) { stage.Step([&stage, work] { stage.loop.Enter(work); }); };
    Dialogs& forms = stage.forms;
    UsrNmPwIP& logon = forms.UsrNmPwIP;

    photographer.Takes(QStringLiteral("01-choose-language"));
    stage.Step([&] {
        for (OptionButton& radio : forms.ChooseLanguage.Radio)
            if (radio.Caption() == language) stage.board.Input([&](UserInput& input) { return input.Click(radio); });
    });
    press(forms.ChooseLanguage.OKButton);
    photographer.Takes(QStringLiteral("02-logon"));
    type(logon.LogonName, "a:b");
    press(logon.Connect);
    photographer.Takes(QStringLiteral("03-box-bad-name"));
    call([&] { stage.client.Input().PressButton(BoxResult::Ok); });
    type(logon.LogonName, "Ann");
    type(logon.Password, "secret");
    type(logon.HostMachine, "lobby.ardvelle.example");
    press(logon.Connect);
    photographer.Takes(QStringLiteral("04-connection"));
    call([&] { stage.Server().Fail(ConnectFailure::UnknownHost); });
    photographer.Takes(QStringLiteral("05-connection-why-not"));
    press(forms.Connection.CancelButton);
    press(logon.Connect);
    stage.Accepts();
    stage.Sends("24:~");
    photographer.Takes(QStringLiteral("06-box-refused"));
    call([&] { stage.client.Input().PressButton(BoxResult::Ok); });
    press(logon.Connect);
    stage.Sends("45:192.0.2.10;~22:Quake3,31;Half Life,12;Go,28;Chess,112;Age of Sail,4;~");
    photographer.Takes(QStringLiteral("07-lobby-filter"));
    TakeConfiguration(stage, photographer, QStringLiteral("07-configure-no-game"));
    press(forms.LobbyFilter.OK);
    photographer.Takes(QStringLiteral("08-lobby-filter-none"));
    press(forms.LobbyFilter.SelectAll);
    press(forms.LobbyFilter.OK);
    stage.Sends("46:Quake3,31;Half Life,12;Go,28;Chess,112;~");
    photographer.Takes(QStringLiteral("09-lobby-password"));
    stage.Step([&] {
        stage.board.Input([&](UserInput& input) { return input.Select(forms.ExeMainLobby.ExeGameList, 2, true); });
    });
    press(forms.ExeMainLobby.ExeGameSelect);
    stage.Sends(Users() + "2:~" + Chat());
    photographer.Takes(QStringLiteral("10-main-view"));
    call([&] { stage.client.DisplayCreateAccount(false); });
    photographer.Takes(QStringLiteral("11-create-account"));
    press(forms.CreateAccount.Create);
    photographer.Takes(QStringLiteral("12-create-account-status"));
    press(forms.CreateAccount.Cancel);
    stage.Sends("36:The server goes down for maintenance at 23:00. Please finish your games; they are not counted "
                "otherwise.;~");
    photographer.Takes(QStringLiteral("13-box-general"));
    call([&] { stage.client.Input().PressButton(BoxResult::Ok); });
    photographer.TakesMenu(stage.view.UserList, 4, QStringLiteral("14-user-menu"));
    stage.Step(
        [&] { stage.board.Input([&](UserInput& input) { return input.DoubleClick(stage.view.lbLobbies, 1); }); });
    photographer.TakesWaiting(QStringLiteral("15-waiting"));
    TakeRooms(stage, photographer);
    TakeGame(stage, photographer);
    const Download download{stage};
    TakeUpdate(stage, photographer, download);
    const bool ran = stage.Run();
    std::printf("%d texts measured\n", photographer.TextsMeasured());
    return ran && photographer.IsContent() && content ? 0 : 1;
}

} // namespace

} // namespace ombrin::test

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 5 || arguments.size() > 6) {
        std::fprintf(stderr, "usage: ombrin-screenshots FOLDER LANGUAGE WIDTH HEIGHT [SKIN]\n");
        return 2;
    }
    return ombrin::test::Run(application, arguments);
}
