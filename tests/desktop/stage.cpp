#include "desktop/stage.h"

#include "foundation/runtime_error.h"

#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>

namespace ombrin::test {

namespace {

constexpr int kBetweenSteps = 25; // ms: a frame, and what Qt does behind it

} // namespace

Stage::Stage(const std::string& language) {
    loop.Attach(client.Stack(), [this] { board.Schedule(); });
    client.CloseClient = [this] { world.loop.Post([this] { client.Stack().RequestEnd(); }); };
    if (!language.empty()) client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", language);
}

Stage::~Stage() = default;

void Stage::Until(std::function<bool()> holds, std::string what) {
    const auto since = std::make_shared<QElapsedTimer>();
    const auto look = std::make_shared<std::function<void()>>();
    *look = [=, this] {
        constexpr int kPatience = 10'000; // ms
        if (!since->isValid()) since->start();
        if (holds()) return;
        if (since->elapsed() > kPatience) {
            std::fprintf(stderr, "waited in vain for: %s\n", what.c_str());
            failed = true;
            client.Stack().RequestEnd();
            return;
        }
        steps.push_front(*look);
    };
    steps.push_back(*look);
}

/// The next step is on its way before this one runs, as this one may wait in a form.
void Stage::Next() {
    if (steps.empty() || client.Stack().Ending()) {
        loop.Enter([this] { client.Stack().RequestEnd(); });
        return;
    }
    const auto step = std::move(steps.front());
    steps.pop_front();
    QTimer::singleShot(kBetweenSteps, this, [this] { Next(); });
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

QWidget* Stage::Front() {
    Form* top = client.Stack().Top();
    QWidget* shown = top == nullptr ? nullptr : windows.WindowOf(*top);
    return shown != nullptr ? shown : &window;
}

} // namespace ombrin::test
