#include "hosts/skin/window/preview.h"

#include "hosts/skin/window/sample_sentences.h"
#include "platform/posix/end_signals.h"

#include <stdexcept>

namespace ombrin::skin {

Preview::Preview(SampleWorld& world, const QFont& chatFont, const CodePage& page)
    : world(world), page(page), loop(world.Events()), measure(chatFont, page), client(world.ForClient(measure, loop)),
      board(loop, client.Input(), page), window(client, board), windows(client, board, window) {
    loop.Attach(client.Stack(), [this] { board.Schedule(); });
    client.CloseClient = [this] { this->world.Events().Post([this] { client.Stack().RequestEnd(); }); };
}

void Preview::Show(QSize size) {
    Run(size, [] {});
}

QPixmap Preview::Picture(QSize size) {
    QPixmap picture;
    Run(size, [&] {
        board.Frame();
        picture = window.grab();
        client.Stack().RequestEnd();
    });
    return picture;
}

void Preview::Run(QSize size, const std::function<void()>& whenThere) {
    std::string fault;
    const EndSignals signals(world.Events(), [this] { client.Stack().RequestEnd(); });
    window.resize(size);
    window.Opens([&] {
        world.Events().Post([&] {
            client.UserControl_Show("Ann;Go;ardvelle.example;7777");
            if (fault = world.LoadingFault(); !fault.empty()) return client.Stack().RequestEnd();
            Play();
            whenThere();
        });
    });
    loop.RunToTheEnd();
    try {
        client.UserControl_Terminate();
    } catch (const ProgramEnding&) { // a box that nobody can answer any more
    }
    if (!fault.empty()) throw std::runtime_error("the skin cannot be shown whole: " + fault);
}

void Preview::Play() {
    const SampleSentences sentences(page);
    world.Server().Accept();
    world.Server().Sends(sentences.Lobby());
    client.Input().Select(client.MainView().RoomList, 0, true);
    world.Server().Sends(sentences.Room());
    client.Input().Type(client.MainView().MainText, "What do we play?");
}

} // namespace ombrin::skin
