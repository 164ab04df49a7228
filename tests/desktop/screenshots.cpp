// ombrin-screenshots FOLDER LANGUAGE WIDTH HEIGHT: pictures of the main view and of every dialog, in one language at
// one size, made from the real windows over a played server.
#include "desktop/stage.h"
#include "hosts/desktop/look.h"
#include "session/wire/codec.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <cstdio>

namespace ombrin::test {

namespace {

class Photographer {
public:
    Photographer(Stage& stage, QString folder) : stage(stage), folder(std::move(folder)) {}

    /// The window in front; a dialog stands on the main window, as a person sees it.
    void Takes(const QString& name) {
        stage.Step([this] { stage.board.Frame(); });
        stage.Step([this, name] {
            stage.board.Frame();
            QPixmap picture = stage.window.grab();
            if (QWidget* front = stage.Front(); front != &stage.window) {
                QPainter painter(&picture);
                const QPixmap dialog = front->grab();
                const QPoint place = stage.window.mapFromGlobal(front->pos());
                painter.drawPixmap(place, dialog);
                painter.setPen(QPen(QColor(0x8F, 0xC7, 0xF5), 1));
                painter.drawRect(QRect(place, front->size()).adjusted(-1, -1, 0, 0));
            }
            if (!picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png")))
                std::fprintf(stderr, "cannot write %s\n", qPrintable(name));
        });
    }

private:
    Stage& stage;
    QString folder;
};

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

int Run(QApplication& application, const QStringList& arguments) {
    const QString folder = arguments[1];
    const std::string language = Held(arguments[2]);
    QDir().mkpath(folder);
    desktop::Look::Install(application);
    Stage stage("");
    QFile languages(QStringLiteral(OMBRIN_ASSETS "/language/AVfLang.ini"));
    if (!languages.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "no language file\n");
        return 1;
    }
    stage.world.files.Update(stage.world.places.WindowsDirectory() + "/AVfLang.ini", Files::Readers::Everybody,
                             [&](const auto&) { return languages.readAll().toStdString(); });
    stage.window.resize(arguments[3].toInt(), arguments[4].toInt());
    stage.client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "");

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
    stage.Step([&] {
        stage.board.menuPlace = stage.window.mapToGlobal(QPoint(720, 240));
        stage.board.Input([&](UserInput& input) { return input.RightClick(stage.view.UserList, 4); });
    });
    stage.Step([&stage, folder] {
        QWidget* menu = QApplication::activePopupWidget();
        if (menu == nullptr) return;
        QPixmap picture = stage.window.grab();
        QPainter(&picture).drawPixmap(stage.window.mapFromGlobal(menu->pos()), menu->grab());
        picture.save(folder + QStringLiteral("/14-user-menu.png"));
        menu->close();
    });
    stage.Step(
        [&] { stage.board.Input([&](UserInput& input) { return input.DoubleClick(stage.view.lbLobbies, 1); }); });
    stage.Step([] {});
    for (int i = 0; i < 8; ++i) stage.Step([] {});
    photographer.Takes(QStringLiteral("15-waiting"));
    return stage.Run() ? 0 : 1;
}

} // namespace

} // namespace ombrin::test

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::fprintf(stderr, "usage: ombrin-screenshots FOLDER LANGUAGE WIDTH HEIGHT\n");
        return 2;
    }
    return ombrin::test::Run(application, arguments);
}
