// The desktop's ways to wait: what runs in them, and what does not.
#include "desktop/stage.h"
#include "hosts/desktop/qt_services.h"

#include <QApplication>
#include <QAudioDevice>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMediaDevices>
#include <QPaintEvent>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ombrin::test {

namespace {

struct Painted : QWidget {
    using QWidget::QWidget;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

struct SocketPair {
    SocketPair() {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
        EXPECT_EQ(write(ends[1], "x", 1), 1);
    }
    ~SocketPair() {
        close(ends[0]);
        close(ends[1]);
    }
    int ends[2];
};

class Loops : public testing::Test {
protected:
    Stage stage{"English"};
    EventLoop& core = stage.world.loop;

    void See(std::function<void()> look) { stage.Step(std::move(look)); }
    void OnlyPaints(const std::function<void()>& wait, int atLeast, qint64 frame);
};

/// `wait` lasts 150 ms at least, in which the window has to be painted so often.
void Loops::OnlyPaints(const std::function<void()>& wait, int atLeast, qint64 frame) {
    const SocketPair sockets;
    Painted picture(&stage.window);
    picture.setGeometry(0, 0, 20, 20);
    QTimer repaint;
    QObject::connect(&repaint, &QTimer::timeout, &picture, [&] { picture.update(); });
    int posts = 0, alarms = 0, arrivals = 0, dropped = 0;
    EventLoop::Watch watch;
    TextBox& name = stage.forms.UsrNmPwIP.LogonName;
    Button& connect = stage.forms.UsrNmPwIP.Connect;
    See([&] {
        picture.show();
        picture.raise(); // what lies behind something else is not painted
        stage.window.setFocus();
        stage.WidgetOf(name)->setFocus();
        watch = core.OnReady(sockets.ends[0], EventLoop::Interest::Read, [&] { ++arrivals, watch.Drop(); });
        core.At(core.Now(), [&] { ++alarms; });
        core.Post([&] { ++posts; });
        QTimer::singleShot(20, &stage, [&] {
            ++dropped;
            QTest::keyClick(stage.window.windowHandle(), Qt::Key_X);
            QTest::mouseClick(stage.window.windowHandle(), Qt::LeftButton, {},
                              stage.WidgetOf(connect)->geometry().center());
            stage.window.close();
        });
        repaint.start(5);
        QElapsedTimer length;
        length.start();
        wait();
        EXPECT_GE(length.elapsed(), 150);
        EXPECT_LE(picture.paints, length.elapsed() / frame + 1);
        repaint.stop();
        EXPECT_EQ(posts + alarms + arrivals, 0);
        EXPECT_GE(picture.paints, atLeast);
        EXPECT_EQ(dropped, 1);
    });
    stage.Until([&] { return posts == 1 && alarms == 1 && arrivals == 1; }, "what the wait has held up");
    See([&] {
        EXPECT_EQ(name.Text(), "");
        EXPECT_EQ(qobject_cast<QLineEdit*>(stage.WidgetOf(name))->text(), QString());
        EXPECT_TRUE(stage.forms.UsrNmPwIP.Visible()) << "neither Connect nor the window's close box";
        EXPECT_FALSE(stage.client.Stack().Ending());
    });
    stage.Types(QStringLiteral("y"));
    See([&] { EXPECT_EQ(name.Text(), "y") << "what comes afterwards is taken"; });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Loops, ABlockingWaitPaintsAndDropsWhatThePersonDoesAndRunsNothingOfTheCore) {
    OnlyPaints([&] { stage.loop.Block(Milliseconds(150)); }, 5, 1);
}

TEST_F(Loops, LongWorkThatBreathesDoesTheSameWithThirtyFramesASecond) {
    const auto work = [&] {
        QElapsedTimer length;
        for (length.start(); length.elapsed() < 150; QThread::msleep(1)) stage.loop.Breathe();
    };
    OnlyPaints(work, 2, 33);
}

TEST_F(Loops, NestedWaitsEndByTheirOwnMarksAndAtOnce) {
    bool outer = false, inner = false, outerOver = false, innerOver = false, later = false;
    See([&] {
        stage.loop.RunUntil(outer);
        outerOver = true;
    });
    See([&] {
        stage.loop.RunUntil(inner);
        innerOver = true;
        EXPECT_FALSE(later) << "nothing more runs in a wait that has ended";
    });
    See([&] { outer = true; });
    See([&] {
        EXPECT_FALSE(outerOver) << "it stands below the other on the stack";
        EXPECT_FALSE(innerOver) << "the end of another wait is not its own";
        core.Post([&] { inner = true; });
        core.Post([&] { later = true; });
    });
    See([&] { EXPECT_TRUE(outerOver && innerOver && later); });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Loops, AFloodOfTheCoresEventsLeavesPaintingAndTimersTheirTurn) {
    Painted picture(&stage.window);
    picture.setGeometry(0, 0, 20, 20);
    bool flooding = true;
    std::size_t events = 0;
    QElapsedTimer since;
    since.start();
    std::function<void()> flood = [&] {
        ++events;
        flooding = flooding && since.elapsed() < 5000; // ms
        if (flooding) core.Post(flood);
    };
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &stage, [&] {
        ++ticks;
        picture.update();
    });
    See([&] {
        picture.show();
        picture.raise(); // what lies behind something else is not painted
        timer.start(10);
        core.Post(flood);
    });
    stage.Until([&] { return ticks >= 20; }, "Qt's timers");
    See([&] {
        EXPECT_TRUE(flooding) << "not only when it is over";
        flooding = false;
        EXPECT_GE(picture.paints, 10);
        EXPECT_GT(events, 1000u);
    });
    EXPECT_TRUE(stage.Run());
}

// What the machine of the tests has no output for must not hold it, and what it has one for has an end.
TEST_F(Loops, ASoundHoldsTheClientNoLongerThanItIsHeard) {
    struct Held : Waiter {
        void RunUntil(const bool&) override {}
        void Block(Milliseconds time) override {
            length += time;
            QTest::qWait(static_cast<int>(time.count()));
        }
        void Breathe() override {}
        Milliseconds length{0};
    } held;
    stage.client.Store().SaveSetting("Settings", "Volume", "1");
    desktop::QtSound({"", OMBRIN_SHARE}, stage.client.Store(), CodePage::Usual(), held).Play("EnterLobby2");
    EXPECT_EQ(held.length > Milliseconds(0), !QMediaDevices::audioOutputs().isEmpty());
    EXPECT_LT(held.length, Milliseconds(2000));
}

} // namespace

} // namespace ombrin::test
