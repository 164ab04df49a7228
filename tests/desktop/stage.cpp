#include "desktop/stage.h"

#include "foundation/runtime_error.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>
#include <cstdio>

namespace ombrin::test {

namespace {

constexpr int kBetweenSteps = 20; // ms: more than a frame

QWindow* WindowOf(const QWidget& widget) { return widget.window()->windowHandle(); }

} // namespace

Stage::Stage(const std::string& language) {
    window.Populate();
    loop.Attach(client.Stack(), [this] { board.Schedule(); });
    client.CloseClient = [this] { world.loop.Post([this] { client.Stack().RequestEnd(); }); };
    if (!language.empty()) client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", language);
}

Stage::~Stage() = default;

void Stage::Until(std::function<bool()> holds, std::string what, int patience) {
    Step([=, this] {
        QElapsedTimer since;
        since.start();
        Look(holds, what, patience, since);
    });
}

void Stage::Look(const std::function<bool()>& holds, const std::string& what, int patience,
                 const QElapsedTimer& since) {
    if (holds()) return;
    if (since.elapsed() > patience) {
        Fail("waited in vain for: " + what);
        return client.Stack().RequestEnd();
    }
    steps.push_front([=, this] { Look(holds, what, patience, since); });
}

void Stage::Fail(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    failed = true;
}

/// The next step is on its way before this one runs, as this one may wait in a form. Its time counts from when this
/// one is over or waits, so that the frame of what has changed comes first.
void Stage::Next() {
    if (steps.empty() || client.Stack().Ending()) {
        loop.Enter([this] { client.Stack().RequestEnd(); });
        return;
    }
    if (inInput) return QTimer::singleShot(kBetweenSteps, this, [this] { Next(); });
    const auto step = std::move(steps.front());
    steps.pop_front();
    constexpr int kWindowsSettle = 5; // ms
    QTimer::singleShot(kWindowsSettle, this, [this] {
        // The window manager's part: the keys go to the window in front.
        // A window beside the main one has them when it took them.
        QWidget* front = QApplication::activeModalWidget();
        const QWindow* focused = QGuiApplication::focusWindow();
        if (front == nullptr && (focused == nullptr || !focused->isVisible())) front = &window;
        if (QApplication::activePopupWidget() == nullptr && front != nullptr) front->activateWindow();
        QTimer::singleShot(kBetweenSteps, this, [this] { Next(); });
    });
    step();
}

bool Stage::Run() {
    window.show();
    world.loop.Post([this] { client.UserControl_Show(std::nullopt); });
    QTimer::singleShot(kBetweenSteps, this, [this] { Next(); });
    loop.RunToTheEnd();
    try {
        client.UserControl_Terminate();
    } catch (const ProgramEnding&) {
    }
    return !failed;
}

void Stage::Accepts() {
    Step([this] { loop.Enter([this] { Server().Accept(); }); });
}

void Stage::Sends(const std::string& data) {
    Step([this, data] { loop.Enter([this, data] { Server().Sends(data); }); });
}

std::string Stage::Heard() {
    const auto& sent = Server().sent;
    return heard < sent.size() ? sent[heard++] : std::string();
}

void Stage::Presses(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    for (const QTest::KeyAction action : {QTest::Press, QTest::Release})
        Step([=, this] {
            if (QWidget* popup = QApplication::activePopupWidget())
                QTest::keyEvent(action, popup->windowHandle(), key, modifiers);
            else if (QWindow* focused = QGuiApplication::focusWindow())
                QTest::keyEvent(action, focused, key, modifiers);
            else
                Fail("no window has the keys");
        });
}

void Stage::Types(const QString& text) {
    Step([this, text] {
        const QScopedValueRollback alone(inInput, true);
        for (const QChar c : text) {
            const auto key = c.unicode() < 128 ? static_cast<Qt::Key>(c.toUpper().unicode()) : Qt::Key_unknown;
            QTest::sendKeyEvent(QTest::Click, QGuiApplication::focusWindow(), key, QString(c), {});
        }
    });
}

void Stage::TabsTo(Control& control) {
    constexpr int kMost = 60;
    Step([this, &control] { TabOn(control, kMost); });
}

void Stage::TabOn(const Control& control, int left) {
    if (HasKeys(control)) return;
    if (left == 0) return Fail("Tab does not reach " + control.Name());
    steps.push_front([this, &control, left] { TabOn(control, left - 1); });
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Tab);
}

void Stage::Click(const std::function<QWidget*()>& target, const std::function<QPoint()>& place,
                  Qt::MouseButton button) {
    const auto at = std::make_shared<std::pair<QPointer<QWindow>, QPoint>>();
    Step([=, this] {
        QWidget* widget = target();
        if (widget == nullptr) return Fail("there is nothing to click on");
        *at = {WindowOf(*widget), widget->mapTo(widget->window(), place())};
        QTest::mousePress(at->first, button, {}, at->second);
    });
    Step([=] {
        if (at->first != nullptr) QTest::mouseRelease(at->first, button, {}, at->second);
    });
}

void Stage::Clicks(Control& control, Qt::MouseButton button) {
    Click([this, &control] { return WidgetOf(control); },
          [this, &control] { return WidgetOf(control)->rect().center(); }, button);
}

void Stage::ClicksRow(Control& list, int row, Qt::MouseButton button) {
    Click([this, &list] { return qobject_cast<QAbstractItemView*>(WidgetOf(list))->viewport(); },
          [this, &list, row] { return PlaceOfRow(list, row); }, button);
}

void Stage::DoubleClicksRow(Control& list, int row) {
    Step([this, &list, row] {
        QWidget* viewport = qobject_cast<QAbstractItemView*>(WidgetOf(list))->viewport();
        const QScopedValueRollback alone(inInput, true);
        // To the widget itself: by way of the window, a busy machine could take it for two single clicks.
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, PlaceOfRow(list, row));
    });
}

void Stage::ClicksText(const QString& caption) {
    const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    const auto entry = [=]() -> QAction* {
        for (QAction* action : menu()->actions())
            if (action->text() == caption) return action;
        return nullptr;
    };
    const auto button = [=]() -> QPushButton* {
        QWidget* box = QApplication::activeModalWidget();
        for (auto* candidate : box == nullptr ? QList<QPushButton*>() : box->findChildren<QPushButton*>())
            if (candidate->text() == caption) return candidate;
        return nullptr;
    };
    Click([=]() -> QWidget* { return menu() != nullptr ? static_cast<QWidget*>(menu()) : button(); },
          [=] { return menu() != nullptr ? menu()->actionGeometry(entry()).center() : button()->rect().center(); },
          Qt::LeftButton);
}

bool Stage::HasKeys(const Control& control) {
    const desktop::Painter* painter = board.PainterOf(control);
    return painter != nullptr && painter->Widget()->isVisible() && painter->Widget()->hasFocus();
}

QPoint Stage::PlaceOfRow(const Control& list, int row) {
    auto* view = qobject_cast<QAbstractItemView*>(WidgetOf(list));
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    return view->visualRect(index).center();
}

void Stage::Speaks(const std::string& language) {
    QFile languages(QStringLiteral(OMBRIN_ASSETS "/language/AVfLang.ini"));
    if (!languages.open(QIODevice::ReadOnly)) return Fail("no language file");
    world.files.Update(world.places.WindowsDirectory() + "/AVfLang.ini", Files::Readers::Everybody,
                       [&](const auto&) { return languages.readAll().toStdString(); });
    client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", language);
}

void Stage::LogsOn(bool atOnce) {
    client.Inis().Write("AV.ini", "GameFilter", "DisplayedGames", "Go;Chess;");
    Step([this] {
        for (const auto& [box, text] : {std::pair(&forms.UsrNmPwIP.LogonName, "ann"),
                                        {&forms.UsrNmPwIP.Password, "pw"},
                                        {&forms.UsrNmPwIP.HostMachine, "lobby.example"}})
            board.Input([&, box = box, text = text](UserInput& input) { return input.Type(*box, text); });
    });
    Step([this] { board.Input([this](UserInput& input) { return input.Click(forms.UsrNmPwIP.Connect); }); });
    const std::string welcome = "45:10.0.0.5;~22:Go,1;Chess,2;~", lobby = "0:ann;1;bob;1;cid;1;~47:ann;bob;cid;~";
    if (atOnce) {
        Step([=, this] {
            loop.Enter([=, this] {
                Server().Accept();
                Server().Sends(welcome + lobby);
            });
        });
    } else {
        Accepts();
        Sends(welcome);
        Sends(lobby);
    }
    Step([this] { heard = Server().sent.size(); });
}

QWidget* Stage::Front() {
    Form* top = client.Stack().Top();
    QWidget* shown = top == nullptr ? nullptr : windows.WindowOf(*top);
    return shown != nullptr ? shown : &window;
}

} // namespace ombrin::test
