// The download of an update as a person sees it: the question, the progress, and both ends.
#include "desktop/stage.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <gtest/gtest.h>

namespace ombrin::test {

namespace {

class Download : public testing::Test {
protected:
    Download() { stage.Speaks("Deutsch"); } // whose last sentence takes two lines
    /// The user is asked about two files, of 4 and 2 bytes, agrees, and the server has answered.
    void Begins() {
        stage.LogsOn();
        stage.Sends("50:updates.example;9001;One.txt;4;3;1.0;Two.txt;2;3;1.0;~");
        stage.ClicksText(QStringLiteral("OK"));
        Serves([this] { Server().Accept(); });
    }
    recording::PlayedSocket& Server() { return stage.world.network.Named("FileTransferSocket"); }
    void Serves(std::function<void()> act) {
        stage.Step([this, act] { stage.loop.Enter(act); });
    }
    void Sends(const char* bytes) {
        Serves([this, bytes] { Server().Sends(bytes); });
    }
    /// What the dialog says, how far its bar is, and that its size and its one button stay where they were.
    void Shows(const char* text, int percent, Control& button) {
        stage.Step([this, text, percent, &button] {
            QWidget& dialog = *stage.Front();
            EXPECT_EQ(dialog.windowTitle(), "Download-Fortschritt");
            EXPECT_EQ(static_cast<QLabel*>(stage.WidgetOf(form.DPLabel))->text(), text);
            EXPECT_EQ(static_cast<QProgressBar*>(stage.WidgetOf(form.DownloadProgressBar))->value(), percent);
            EXPECT_TRUE(stage.HasKeys(button)) << text;
            EXPECT_TRUE(stage.window.findChild<QWidget*>("veil")->isVisible());
            const QRect place(stage.WidgetOf(button)->pos(), dialog.size());
            EXPECT_EQ(place, last.value_or(place)) << text;
            last = place;
        });
    }

    Stage stage{""};
    DownloadProgress& form = stage.forms.DownloadProgress;
    std::optional<QRect> last; ///< the button's place and the dialog's size
};

TEST_F(Download, IsFollowedToItsEndWhereOKTakesThePlaceOfCancel) {
    Begins();
    Shows("Herunterladen: Datei 1 von 2", 0, form.Cancel);
    Sends("on");
    Shows("Herunterladen: Datei 1 von 2", 50, form.Cancel);
    Sends("e!");
    Sends("tw");
    Shows("Der Download ist abgeschlossen. Das Programm wird neu gestartet und aktualisiert sich selbst.", 100,
          form.OK);
    stage.Presses(Qt::Key_Return);
    stage.Step([] { ADD_FAILURE() << "the client goes on"; });
    EXPECT_TRUE(stage.Run());
    EXPECT_EQ(stage.world.files.Content(stage.world.places.WindowsDirectory() + "/One.txt"), "one!");
    EXPECT_EQ(stage.world.Told("shell"), std::vector{stage.world.places.SystemDirectory() + "/OBPatch.exe"});
}

TEST_F(Download, EndsWithTheClientWhenTheWindowIsClosedBefore) {
    Begins();
    Sends("on");
    Serves([this] { stage.Server().CloseByPeer(); });
    stage.Step([this] {
        const auto* bar = stage.window.findChild<QWidget*>("connectionBar");
        EXPECT_TRUE(bar == nullptr || !bar->isVisible()) << "offers a way back into a lobby";
        stage.Front()->close();
    });
    stage.Step([this] {
        const auto* text = stage.Front()->findChild<QLabel*>();
        EXPECT_TRUE(text->text().startsWith(QStringLiteral("Der Download wurde abgebrochen.")))
            << text->text().toStdString();
    });
    stage.ClicksText(QStringLiteral("OK"));
    stage.Step([] { ADD_FAILURE() << "the client goes on"; });
    EXPECT_TRUE(stage.Run());
    EXPECT_EQ(Server().sent.back(), "Ombrin:27:~");
    EXPECT_EQ(stage.world.Told("shell"), std::vector<std::string>{});
}

// What a key does that is still held down from the answer to the question.
TEST_F(Download, IsNotGivenUpByAKeyThatIsHeldDown) {
    Begins();
    stage.Step([this] {
        for (int i = 0; i < 3; ++i) {
            QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
            QApplication::sendEvent(stage.WidgetOf(form.Cancel), &again);
        }
    });
    Shows("Herunterladen: Datei 1 von 2", 0, form.Cancel);
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
