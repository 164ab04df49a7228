// The chat on the screen: what is in view, copied, followed and coloured.
#include "desktop/stage.h"
#include "hosts/desktop/look.h"
#include "session/wire/codec.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace ombrin::test {

namespace {

class Chats : public testing::Test {
protected:
    Chats() { stage.LogsOn(); }

    Stage stage{"English"};
    QTextBrowser& chat = *qobject_cast<QTextBrowser*>(stage.WidgetOf(stage.view.msflxMainChatLines));
    QScrollBar& bar = *chat.verticalScrollBar();

    void See(std::function<void()> look) { stage.Step(std::move(look)); }
    void Says(const std::string& sender, const std::string& line) {
        stage.Sends("1:" + sender + ":" + EncodeData(line) + ":;~");
    }
    void SaysLines(int from, int count) {
        std::string message = "1:";
        for (int i = from; i < from + count; ++i) message += "bob:line " + std::to_string(i) + ":;";
        stage.Sends(message + "~");
    }
    std::string TopLine() const { return chat.cursorForPosition({8, 8}).block().text().toStdString(); }
    /// Of the first place where the text stands, on the viewport.
    QPoint PlaceOf(const QString& text) const {
        QTextCursor cursor = chat.document()->find(text);
        cursor.setPosition(cursor.selectionStart() + 1);
        return chat.cursorRect(cursor).center();
    }
    void ClicksOn(const QString& text) {
        stage.Click([this] { return chat.viewport(); }, [this, text] { return PlaceOf(text); });
    }
};

TEST_F(Chats, TheNewestLineIsInViewButAReaderWhoHasScrolledBackIsLeftWhereHeIs) {
    SaysLines(0, 60);
    See([this] {
        EXPECT_GT(bar.maximum(), 0);
        EXPECT_EQ(bar.value(), bar.maximum());
    });
    std::string reading;
    See([&, this] {
        bar.setValue(bar.maximum() * 2 / 3);
        reading = TopLine();
    });
    for (const int from : {60, 70, 80, 90, 100}) { // the last of them push lines out at the top
        SaysLines(from, 10);
        See([&, this] { EXPECT_EQ(TopLine(), reading); });
    }
    See([this] { bar.setValue(bar.maximum()); });
    SaysLines(110, 3);
    See([this] {
        EXPECT_EQ(bar.value(), bar.maximum());
        EXPECT_EQ(chat.document()->lastBlock().text(), QStringLiteral("bob\tline 112"));
        EXPECT_EQ(chat.document()->firstBlock().text(), QStringLiteral("bob\tline 14"));
        EXPECT_EQ(chat.document()->blockCount(), 99);
    });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Chats, WhatIsSelectedStaysAndIsCopied) {
    SaysLines(0, 3);
    stage.Clicks(stage.view.msflxMainChatLines);
    stage.Presses(Qt::Key_C, Qt::ControlModifier);
    See([this] {
        EXPECT_EQ(stage.world.Told("clipboard"), std::vector<std::string>{"line 2"}) << "the client's own way";
    });
    stage.Presses(Qt::Key_A, Qt::ControlModifier);
    SaysLines(3, 2);
    stage.Presses(Qt::Key_C, Qt::ControlModifier);
    See([this] {
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("bob\tline 0\nbob\tline 1\nbob\tline 2"));
        EXPECT_EQ(stage.world.Told("clipboard").size(), 1u);
    });
    // A selection is not dragged away: dragging would run a loop of Qt's own. It is begun anew.
    const auto mouse = [this](QTest::MouseAction action, Qt::MouseButton button, const char* to) {
        stage.Step([=, this] {
            const QPoint place = chat.viewport()->mapTo(&stage.window, PlaceOf(QString::fromLatin1(to)));
            QTest::mouseEvent(action, stage.window.windowHandle(), button, {}, place);
        });
    };
    mouse(QTest::MousePress, Qt::LeftButton, "line 0");
    mouse(QTest::MouseMove, Qt::NoButton, "line 2");
    mouse(QTest::MouseRelease, Qt::LeftButton, "line 2");
    See([this] {
        EXPECT_GT(chat.textCursor().selectionStart(), 0);
        EXPECT_TRUE(chat.textCursor().selectedText().contains(QStringLiteral("line 1")));
    });
    EXPECT_TRUE(stage.Run());
}

/// Writes down what Qt is asked to open.
class Opener : public QTextBrowser {
public:
    Opener() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "setSource"); }
    ~Opener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    QStringList opened;

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType) override { opened += url.toString(); }
};

TEST_F(Chats, ALinkIsOpenedOnlyWhenThePersonHasSeenItsAddressAndSaysSo) {
    Opener opener;
    const QString address = QStringLiteral("https://a.example/?x=1&y=2");
    Says("bob", "see https://a.example/?x=1&y=2. And javascript:alert(1)");
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    ClicksOn(QStringLiteral("javascript"));
    See([=] { EXPECT_EQ(box(), nullptr); });
    for (const bool byEscape : {false, true}) {
        ClicksOn(address);
        See([=] {
            ASSERT_NE(box(), nullptr);
            EXPECT_EQ(box()->informativeText(), address);
            EXPECT_EQ(box()->textFormat(), Qt::PlainText);
        });
        stage.Presses(byEscape ? Qt::Key_Escape : Qt::Key_Return);
        See([&opener] { EXPECT_EQ(opener.opened, QStringList()); });
    }
    ClicksOn(address);
    See([=] { ASSERT_NE(box(), nullptr); });
    stage.ClicksText(QStringLiteral("&Open"));
    See([&opener, address] { EXPECT_EQ(opener.opened, QStringList(address)); });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Chats, EachLineStandsUnderItsSenderAndNobodySpeaksInAnothersName) {
    Says("bob", "first");
    Says("cid", "he says\nbob\tanything\r\n~");
    Says("b\nob", "<b>bold</b> &amp; <img src=x>");
    Says("bob", "last");
    See([this] { stage.board.Input([this](UserInput& input) { return input.Type(stage.view.MainText, "mine"); }); });
    See([this] { stage.board.Input([this](UserInput& input) { return input.Click(stage.view.SendMain); }); });
    See([this] {
        QTextBlock block = chat.document()->firstBlock();
        QStringList texts;
        QList<QColor> colours;
        QList<bool> slants;
        for (; block.isValid(); block = block.next()) {
            texts += block.text().replace(QChar::LineSeparator, QLatin1Char('|'));
            colours += block.begin().fragment().charFormat().foreground().color();
            slants += block.begin().fragment().charFormat().fontItalic();
        }
        EXPECT_EQ(texts, QStringList({QStringLiteral("bob\tfirst"), QStringLiteral("cid\the says|bob\tanything|~"),
                                      QStringLiteral("b ob\t<b>bold</b> &amp; <img src=x>"),
                                      QStringLiteral("bob\tlast"), QStringLiteral("ann\tmine")}));
        ASSERT_EQ(colours.size(), 5);
        EXPECT_EQ(slants, QList<bool>({false, false, false, false, true})) << "the own line, without colour too";
        EXPECT_EQ(colours[0], desktop::Look::SenderColour(QStringLiteral("bob")));
        EXPECT_EQ(colours[0], colours[3]);
        EXPECT_NE(colours[0], colours[1]);
    });
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
