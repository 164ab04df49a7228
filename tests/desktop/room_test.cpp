// Rooms and private messages through the real windows, each by the keyboard alone and by the mouse.
#include "desktop/evening.h"
#include "hosts/desktop/type_ahead.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStringListModel>
#include <QTextBrowser>

namespace ombrin::test {

namespace {

class RoomEvening : public Evening {
protected:
    RoomEvening() : Evening("English") { stage.LogsOn(); }

    void Picks(ComboBox& combo, int row) {
        if (byKeys) {
            stage.TabsTo(combo);
            for (int i = 0; i < row; ++i) stage.Presses(Qt::Key_Down);
            return;
        }
        const auto shown = [this, &combo] { return qobject_cast<QComboBox*>(stage.WidgetOf(combo)); };
        stage.Click(shown, [=] { return QPoint(shown()->width() - 8, shown()->height() / 2); });
        stage.Click([=] { return shown()->view()->viewport(); },
                    [=] { return shown()->view()->visualRect(shown()->model()->index(row, 0)).center(); });
    }
    void ChoosesReject(int row) {
        if (!byKeys) {
            stage.ClicksRow(view.RoomUserList, row, Qt::RightButton);
            return stage.ClicksText(QStringLiteral("Reject"));
        }
        stage.TabsTo(view.RoomUserList);
        for (int i = 0; i < row; ++i) stage.Presses(Qt::Key_Down);
        for (const Qt::Key key : {Qt::Key_Menu, Qt::Key_Down, Qt::Key_Return}) stage.Presses(key);
    }
    void SaysThatItWaits(const QString& text) {
        stage.Until(
            [this, text] {
                const auto* sign = stage.window.findChild<QLabel*>(QStringLiteral("waiting"));
                return sign->isVisible() && sign->text() == text;
            },
            text.toStdString());
    }
    void Talks(const std::string& message) {
        Fill(view.RoomText, QStringLiteral("hi"));
        Confirm(view.SendRoom);
        Hears(message);
        Keys(view.RoomText);
    }
};

TEST_P(RoomEvening, ARoomIsCreatedTalkedInAndDestroyed) {
    NewRoom& dialog = forms.NewRoom;
    Push(view.Create);
    Sees(dialog);
    Keys(dialog.NewRoomName);
    Cancel(dialog.CancelButton);
    Keys(view.Create);
    Push(view.Create);
    Confirm(dialog.OKButton);
    SeesBox("Error:  Room name must be entered");
    AnswerOk();
    Fill(dialog.NewRoomName, QStringLiteral("Red Base"));
    Picks(dialog.MaxUsers, 2);
    Push(dialog.PasswordRoom);
    Keys(dialog.Password);
    stage.Types(QStringLiteral("pw"));
    Confirm(dialog.OKButton);
    Hears("Ombrin:4:ann;Go;10.0.0.5;Red Base;4;1;pw;N;:~");
    SaysThatItWaits(QStringLiteral("Creating the room…"));
    stage.Sends("5:ann;10.0.0.5;N;~3:bob;10.0.0.6;N;~4:bob:welcome:;~");
    Keys(view.RoomText);
    IsInFront(view.Destroy);
    IsInFront(view.Launch);
    Talks("Ombrin:5:ann;Go;10.0.0.5;hi;Red Base;:~");
    ChoosesReject(1);
    Hears("Ombrin:23:ann;Go;10.0.0.5;Red Base;bob;:~");
    Push(view.Destroy);
    SeesBox("Are you sure you want to destroy this room?");
    byKeys ? stage.Presses(Qt::Key_Return) : stage.ClicksText(QStringLiteral("&Yes"));
    Hears("Ombrin:9:ann;Go;10.0.0.5;Red Base;:~");
    SaysThatItWaits(QStringLiteral("Closing the room…"));
    stage.Sends("10:~");
    Keys(view.MainText);
    IsInFront(view.Create);
    Push(view.Create);
    Sees(dialog);
    See([&dialog] { EXPECT_EQ(dialog.NewRoomName.Text(), "Red Base"); });
    Keys(dialog.NewRoomName);
    EXPECT_TRUE(stage.Run());
}

TEST_P(RoomEvening, ARoomIsEnteredByItsPasswordAndLeft) {
    RoomPassword& dialog = forms.RoomPassword;
    stage.Sends("2:Arena;1;10.0.0.1;1;8;Lobster;1;10.0.0.2;2;4;Locked;4;10.0.0.3;2;4;~");
    if (byKeys) {
        stage.TabsTo(view.RoomList);
        stage.Types(QStringLiteral("lOC"));
        stage.Until([this] { return view.RoomList.rows.Text(view.RoomList.SelectedItem()) == "Locked (2/4)"; },
                    "the room that was typed");
    } else {
        stage.ClicksRow(view.RoomList, 2);
    }
    Hears("Ombrin:11:ann;Go;10.0.0.5;Locked;:~");
    Hears("");
    See([this] {
        const auto* list = qobject_cast<QAbstractItemView*>(stage.WidgetOf(view.RoomList));
        EXPECT_EQ(list->currentIndex().data(Qt::AccessibleDescriptionRole), QStringLiteral("Needs a password, Locked"));
    });
    const auto enters = [this] {
        Push(view.Enter);
        Hears("Ombrin:7:ann;Go;10.0.0.5;Locked;;N;:~");
    };
    enters();
    stage.Sends("34:~");
    Sees(dialog);
    Keys(dialog.Password);
    Cancel(dialog.CancelButton);
    Keys(view.Enter);
    enters();
    stage.Sends("34:~");
    stage.Types(QStringLiteral("no"));
    Confirm(dialog.OKButton);
    Hears("Ombrin:7:ann;Go;10.0.0.5;Locked;no;:~");
    stage.Sends("33:~");
    SeesBox("Error: Invalid password!");
    AnswerOk();
    Sees(dialog);
    Keys(dialog.Password);
    stage.Types(QStringLiteral("yes"));
    Confirm(dialog.OKButton);
    Hears("Ombrin:7:ann;Go;10.0.0.5;Locked;yes;:~");
    stage.Sends("7:bob;~3:bob;10.0.0.6;N;ann;10.0.0.5;N;~");
    Keys(view.RoomText);
    IsInFront(view.Leave);
    Talks("Ombrin:5:ann;Go;10.0.0.5;hi;Locked;:~");

    // Its creator destroys it, and there is no other; Leave stays visible.
    stage.Sends("10:~11:Arena;~11:Lobster;~11:Locked;~");
    IsInFront(view.Enter);
    stage.Sends("2:Locked;4;10.0.0.3;2;4;~");
    See([this] { EXPECT_TRUE(view.Leave.Visible() && !view.Leave.Enabled()); });
    IsInFront(view.Enter);
    enters();
    stage.Sends("7:bob;~");
    IsInFront(view.Leave);
    Push(view.Leave);
    Hears("Ombrin:8:ann;Go;10.0.0.5;Locked;:~");
    SaysThatItWaits(QStringLiteral("Leaving the room…"));
    stage.Sends("9:~");
    enters();
    stage.Sends("7:bob;~42:~");
    SeesBox("You were rejected from the room.");
    EXPECT_TRUE(stage.Run());
}

TEST_P(RoomEvening, PrivateMessagesComeAndGoBesideTheView) {
    PMDialog& dialog = forms.PMDialog;
    const auto comes = [this, &dialog](const std::string& message, const std::string& recipient) {
        See([this] { stage.window.activateWindow(); });
        stage.Sends(message);
        Sees(dialog);
        See([this, &dialog, recipient] {
            EXPECT_TRUE(stage.Front()->isActiveWindow());
            EXPECT_FALSE(stage.Front()->isModal());
            EXPECT_EQ(qobject_cast<QComboBox*>(stage.WidgetOf(dialog.User))->currentText().toStdString(), recipient);
        });
        Keys(dialog.PrivateMessage);
    };
    comes("35:bob;bob:hi:;~", "bob");
    Fill(dialog.PrivateMessage, QStringLiteral("hello"));
    Confirm(dialog.PMSend);
    Hears("Ombrin:18:ann;Go;10.0.0.5;bob;hello;:~");
    comes("35:ann;ann:hello:;~", "bob");
    comes("35:cid;cid:psst:;~", "cid");
    const auto lines = [this, &dialog] { return qobject_cast<QTextBrowser*>(stage.WidgetOf(dialog.msflxPMLines)); };
    See([=] { EXPECT_EQ(lines()->toPlainText(), QStringLiteral("bob\thi\nann\thello\ncid\tpsst")); });
    if (byKeys) { // the last recipient stands in the list
        Picks(dialog.User, 1);
    } else { // a click on a name turns the dialog to that person
        stage.Click([=] { return lines()->viewport(); },
                    [=] { return lines()->cursorRect(lines()->document()->find(QStringLiteral("bo"))).center(); });
    }
    See([&dialog] { EXPECT_EQ(dialog.User.Text(), "bob"); });
    Fill(dialog.User, QStringLiteral("ann"));
    Fill(dialog.PrivateMessage, QStringLiteral("me"));
    Confirm(dialog.PMSend);
    SeesBox("Error:  you can't send a private message to yourself.");
    AnswerOk();
    See([this] { EXPECT_TRUE(stage.Front()->isActiveWindow()) << "the dialog that the box came from"; });
    Picks(dialog.User, byKeys ? 1 : 0);
    Fill(dialog.PrivateMessage, QStringLiteral("again"));
    Confirm(dialog.PMSend);
    Hears("Ombrin:18:ann;Go;10.0.0.5;bob;again;:~");
    Cancel(dialog.OKButton);
    See([this, &dialog] {
        EXPECT_FALSE(dialog.Visible());
        EXPECT_TRUE(stage.window.isActiveWindow());
    });
    EXPECT_TRUE(stage.Run());
}

INSTANTIATE_TEST_SUITE_P(By, RoomEvening, BothHands(), NameOf);

TEST(TypeAhead, FindsTheRowThatBeginsWithWhatWasTyped) {
    const QStringListModel rows({QStringLiteral("Arena"), QStringLiteral("apple"), QStringLiteral("ARROW"),
                                 QStringLiteral("bar"), QStringLiteral("Ärger")});
    struct Row {
        int from;
        const char* typed; ///< "|" is a pause
        int found;
    };
    const Row kRows[] = {{-1, "a", 0}, {0, "a", 1}, {2, "a", 0},  {3, "ar", 0},  {3, "arr", 2}, {0, "aa", 2},
                         {0, "b", 3},  {3, "b", 3}, {0, "x", -1}, {0, "bx", -1}, {0, "b|a", 0}, {3, "ä", 4}};
    for (const Row& row : kRows) {
        desktop::TypeAhead search;
        int at = row.from, found = -1;
        for (const QChar letter : QString::fromUtf8(row.typed)) {
            if (letter == QLatin1Char('|')) {
                search.Forget();
                continue;
            }
            found = search.Find(rows, at, letter);
            if (found >= 0) at = found;
        }
        EXPECT_EQ(found, row.found) << row.from << " " << row.typed;
    }
}

} // namespace

} // namespace ombrin::test
