// Desktop services that only write down what they were asked for, and answer at once.
#pragma once

#include "platform/desktop.h"
#include "platform/recording/event.h"

namespace ombrin::recording {

class RecordingSound : public Sound {
public:
    explicit RecordingSound(Journal journal) : journal(std::move(journal)) {}
    void Play(std::string_view name) override { journal({"sound", {{"name", std::string(name)}}}); }

private:
    Journal journal;
};

class RecordingClipboard : public Clipboard {
public:
    explicit RecordingClipboard(Journal journal) : journal(std::move(journal)) {}
    void SetText(std::string_view text) override { journal({"clipboard", {{"text", std::string(text)}}}); }

private:
    Journal journal;
};

class RecordingOpener : public TargetOpener {
public:
    static constexpr int kNotFound = 2;

    explicit RecordingOpener(Journal journal) : journal(std::move(journal)) {}
    int Open(std::string_view target, std::string_view directory) override {
        workingDirectory = directory;
        journal({"open", {{"target", std::string(target)}}});
        return target.empty() ? kNotFound : result;
    }

    int result = 33;              ///< the answer for a target that is not empty
    std::string workingDirectory; ///< of the last call

private:
    Journal journal;
};

class RecordingBrowser : public Browser {
public:
    explicit RecordingBrowser(Journal journal) : journal(std::move(journal)) {}
    void Navigate(std::string_view address) override { journal({"navigate", {{"address", std::string(address)}}}); }

private:
    Journal journal;
};

/// The same heights on every machine: a character is 8 pixels wide, a line 16 pixels high, a pixel 15 twips.
class FixedMeasure : public TextMeasure {
public:
    int LineHeight() const override { return 16; }
    int LineCount(std::string_view text, int width) const override;
    double TwipsPerPixel() const override { return 15.0; }
};

} // namespace ombrin::recording
