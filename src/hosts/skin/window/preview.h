// The client's own window over a sample world.
#pragma once

#include "hosts/desktop/qt_services.h"
#include "hosts/desktop/windows.h"
#include "hosts/skin/screen.h"
#include "hosts/skin/window/sample_world.h"

namespace ombrin::skin {

/// A client in that skin, with something in every list and chat. Its buttons work as far as they need no answer.
class Preview {
public:
    Preview(SampleWorld& world, const QFont& chatFont, const CodePage& page);

    /// Opens the window and waits until it is closed, or until the picture is taken. Raises std::runtime_error where
    /// the skin cannot be shown whole.
    void Show(QSize size);
    QPixmap Picture(QSize size);

private:
    void Run(QSize size, const std::function<void()>& whenThere);
    void Play();

    SampleWorld& world;
    const CodePage& page;
    desktop::DesktopLoop loop;
    const desktop::QtMeasure measure;
    GameLobby client;
    desktop::Board board;
    desktop::MainWindow window;
    desktop::Windows windows;
};

} // namespace ombrin::skin
