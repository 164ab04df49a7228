// The desktop's services by Qt.
#pragma once

#include "foundation/code_page.h"
#include "foundation/settings.h"
#include "platform/desktop.h"
#include "platform/sound_files.h"
#include "platform/waiter.h"

#include <QFontMetrics>
#include <QString>

namespace ombrin::desktop {

/// The volume (sound_volume.h) is read anew each time. Silent, and at once, on a machine without an output.
class QtSound : public Sound {
public:
    QtSound(SoundFolders folders, Settings& settings, const CodePage& page, Waiter& waiter)
        : folders(std::move(folders)), settings(settings), page(page), waiter(waiter) {}
    void Play(std::string_view name) override;

private:
    SoundFolders folders;
    Settings& settings;
    const CodePage& page;
    Waiter& waiter;
};

class QtClipboard : public Clipboard {
public:
    explicit QtClipboard(const CodePage& page) : page(page) {}
    void SetText(std::string_view text) override;

private:
    const CodePage& page;
};

class QtOpener : public TargetOpener {
public:
    explicit QtOpener(const CodePage& page) : page(page) {}
    int Open(std::string_view target, std::string_view workingDirectory) override;

private:
    const CodePage& page;
};

/// In the font that the chat is painted with.
class QtMeasure : public TextMeasure {
public:
    QtMeasure(const QFont& font, const CodePage& page) : metrics(font), page(page) {}
    int LineHeight() const override { return metrics.height(); }
    int LineCount(std::string_view text, int width) const override;
    double TwipsPerPixel() const override { return 15.0; }

private:
    QFontMetrics metrics;
    const CodePage& page;
};

} // namespace ombrin::desktop
