// The main view and the logon page: what a person can type, what is shown of texts from outside, how the view waits,
// where everything stands, and what a screen reader and the Tab key find.
#include "desktop/stage.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <gtest/gtest.h>

namespace ombrin::test {

namespace {

class Views : public testing::Test {
protected:
    Stage stage{"English"};
    View& view = stage.view;
    UsrNmPwIP& logon = stage.forms.UsrNmPwIP;

    void See(std::function<void()> look) { stage.Step(std::move(look)); }
    QLineEdit& EditOf(TextBox& box) { return *qobject_cast<QLineEdit*>(stage.WidgetOf(box)); }
    QAbstractItemView& ListOf(Control& list) { return *qobject_cast<QAbstractItemView*>(stage.WidgetOf(list)); }
    /// What a person reads in a tool tip of that text.
    static QString Read(const QString& tip) {
        return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
    }
};

TEST_F(Views, ATextBoxRefusesAtOnceWhatTheServerCannotBeTold) {
    struct Row {
        TextBox& box;
        QString typed;
        std::string kept;
        bool pasted;
    };
    const Row kRows[] = {
        {logon.LogonName, QStringLiteral("a日b"), "ab", false},
        {logon.LogonName, QStringLiteral("x日y€z語"), "xy\x80z", true},
        {logon.LogonName, QString(30, QLatin1Char('n')), std::string(20, 'n'), false},
        {logon.HTTPPort, QStringLiteral("1234567"), "12345", true},
        {logon.Password, QStringLiteral("secret"), "secret", false},
    };
    for (const Row& row : kRows) {
        stage.Clicks(row.box);
        stage.Presses(Qt::Key_A, Qt::ControlModifier);
        See([&row] { QApplication::clipboard()->setText(row.typed); });
        row.pasted ? stage.Presses(Qt::Key_V, Qt::ControlModifier) : stage.Types(row.typed);
        See([this, &row] {
            EXPECT_EQ(row.box.Text(), row.kept);
            EXPECT_EQ(EditOf(row.box).text(), stage.board.Text(row.kept));
            EXPECT_EQ(EditOf(row.box).cursorPosition(), EditOf(row.box).text().size());
            EXPECT_EQ(EditOf(row.box).displayText() == EditOf(row.box).text(), !row.box.IsPassword());
        });
    }
    EXPECT_TRUE(stage.Run());
}

TEST_F(Views, AViewThatWaitsTakesNothingSaysSoAndLetsThePersonReadOn) {
    QElapsedTimer since;
    const auto sign = [this]() -> QLabel* {
        for (QLabel* label : stage.window.findChildren<QLabel*>())
            if (label->isVisible() && label->text().startsWith(QStringLiteral("Waiting"))) return label;
        return nullptr;
    };
    stage.LogsOn();
    stage.Sends("1:bob:something to read:;~");
    stage.Clicks(view.lbLobbies);
    stage.Sends("20:~");
    See([&] { since.start(); });
    stage.Presses(Qt::Key_Return); // the box of the refusal
    See([&, this] {
        ASSERT_FALSE(view.Enabled());
        EXPECT_EQ(stage.client.Stack().Top(), nullptr);
        EXPECT_EQ(sign(), nullptr) << "a short wait does not flicker";
    });
    stage.Until([=] { return sign() != nullptr; }, "the sign of waiting");
    See([&] { EXPECT_GE(since.elapsed(), 150); });

    stage.Clicks(view.MainText);
    stage.Types(QStringLiteral("lost"));
    stage.Presses(Qt::Key_Return);
    stage.Clicks(view.lbLobbies);
    stage.Presses(Qt::Key_Down);
    stage.ClicksRow(view.UserList, 2);
    stage.DoubleClicksRow(view.lbLobbies, 1);
    See([this] {
        EXPECT_EQ(view.MainText.Text(), "");
        EXPECT_EQ(EditOf(view.MainText).text(), QString()) << "what is shown is what will be sent";
        EXPECT_EQ(ListOf(view.lbLobbies).selectionModel()->selectedRows().value(0).row(), 0);
        EXPECT_EQ(ListOf(view.UserList).selectionModel()->selectedRows().value(0).row(), 0);
        EXPECT_EQ(stage.Heard(), "");
        for (Control* control :
             std::initializer_list<Control*>{&view.UserList, &view.msflxMainChatLines, &view.MainText})
            EXPECT_TRUE(stage.WidgetOf(*control)->isEnabled()) << control->Name();
    });
    stage.Clicks(view.msflxMainChatLines);
    stage.Presses(Qt::Key_A, Qt::ControlModifier);
    stage.Presses(Qt::Key_C, Qt::ControlModifier);
    See([] { EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("bob\tsomething to read")); });
    stage.Sends("48:eve;Go;~0:dan;1;~");
    See([=, this] {
        EXPECT_EQ(sign(), nullptr);
        EXPECT_TRUE(view.lbLobbies.HasFocus());
        EXPECT_TRUE(stage.HasKeys(view.msflxMainChatLines)) << "the focus stays where the person has it";
    });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Views, WhoeverComesIntoALobbyCanTalkHoweverFastTheServerIs) {
    for (const bool atOnce : {false, true}) {
        SCOPED_TRACE(atOnce);
        Stage arrival("English");
        arrival.LogsOn(atOnce);
        arrival.Until([&] { return arrival.HasKeys(arrival.view.MainText); }, "the keys in the line");
        EXPECT_TRUE(arrival.Run());
    }
}

TEST_F(Views, TextsFromOutsideStandThereAsTheyCame) {
    const std::string kTexts[] = {"<b>x</b>", "a & b > c", "&lt;i&gt;", "<img src=\"x\">", "?x=1&amp=2 <a href=y>"};
    stage.LogsOn();
    for (const std::string& text : kTexts) {
        const QString shown = QString::fromStdString(text);
        stage.Sends("0:" + text + "~");
        stage.Sends("21:" + text + "~");
        See([=, this] {
            const RowId row = view.UserList.rows.Append(text);
            view.UserList.rows.SetTip(row, text);
            view.btnConfigurable1.SetCaption(text + std::string(40, 'w'));
        });
        See([=, this] {
            const auto* label = qobject_cast<QLabel*>(stage.WidgetOf(view.ChatFrame));
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            EXPECT_TRUE(label->text().startsWith(QStringLiteral("Lobby - "))) << label->text().toStdString();
            const QAbstractItemModel& rows = *ListOf(view.UserList).model();
            const QModelIndex last = rows.index(rows.rowCount() - 1, 0);
            EXPECT_EQ(last.data().toString(), shown);
            EXPECT_EQ(Read(last.data(Qt::ToolTipRole).toString()), shown);
            EXPECT_TRUE(Read(stage.WidgetOf(view.btnConfigurable1)->toolTip()).startsWith(shown));
        });
        stage.Sends("36:" + text + "~");
        See([=] {
            const auto labels = QApplication::activeModalWidget()->findChildren<QLabel*>();
            ASSERT_EQ(labels.size(), 1);
            EXPECT_EQ(labels[0]->textFormat(), Qt::PlainText);
            EXPECT_TRUE(shown.startsWith(labels[0]->text())) << labels[0]->text().toStdString();
        });
        stage.Presses(Qt::Key_Return);
    }
    EXPECT_TRUE(stage.Run());
}

TEST_F(Views, ASkinColoursTheHeadingsOfTheChats) {
    stage.LogsOn();
    constexpr Colour kOrange = 0x0000A5FF;
    See([this] { view.ChatFrame.SetForeColour(kOrange); });
    See([this] {
        const auto colourOf = [this](const Label& label) {
            return stage.WidgetOf(label)->palette().color(QPalette::WindowText);
        };
        EXPECT_EQ(colourOf(view.ChatFrame), QColor(0xFF, 0xA5, 0x00));
        EXPECT_NE(colourOf(view.RoomBorder), QColor(0xFF, 0xA5, 0x00));
    });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Views, EveryControlStandsWhereItsModelSays) {
    constexpr int kTwipsPerPixel = 15, kColumnHeight = 36;
    stage.LogsOn();
    for (const QSize size : {QSize(992, 754), QSize(1920, 1080), QSize(517, 396)}) {
        See([this, size] { stage.window.resize(size); });
        See([=, this] {
            EXPECT_EQ(stage.window.size(), size);
            int looked = 0;
            for (const Control* control : view.Controls()) {
                if (stage.board.PainterOf(*control) == nullptr) continue;
                const Place& place = control->Where();
                QRect expected(place.left, place.top, place.width, place.height);
                // The buttons of the column touch by the tables; a person sees a gap.
                if (place.height == kColumnHeight) expected.adjust(0, 2, 0, -2);
                EXPECT_EQ(stage.WidgetOf(*control)->geometry(), expected) << control->Name();
                ++looked;
            }
            EXPECT_GE(looked, 40);
            EXPECT_EQ(logon.m_iViewWidth / kTwipsPerPixel, size.width());
            for (const Control* control : logon.Controls()) {
                if (stage.board.PainterOf(*control) == nullptr) continue;
                const Place& place = control->Where();
                EXPECT_EQ(stage.WidgetOf(*control)->geometry(),
                          QRect(place.left / kTwipsPerPixel, place.top / kTwipsPerPixel, place.width / kTwipsPerPixel,
                                place.height / kTwipsPerPixel))
                    << control->Name();
            }
        });
    }
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
