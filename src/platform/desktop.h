// Services of the user's desktop.
#pragma once

#include <string>
#include <string_view>

namespace ombrin {

class Sound {
public:
    virtual ~Sound() = default;
    /// Plays a file of the sound folder, or a named sound, to its end, five seconds at most; an empty name is silence.
    /// A missing file or device is no error.
    virtual void Play(std::string_view name) = 0;
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// Raises 5 where there is no clipboard.
    virtual void SetText(std::string_view text) = 0;
};

class TargetOpener {
public:
    virtual ~TargetOpener() = default;
    /// Hands an address, a document or a program to what the desktop has registered for it, without waiting for it;
    /// a relative path counts from `workingDirectory`. Above 32 it has worked; 2 is "not found".
    virtual int Open(std::string_view target, std::string_view workingDirectory) = 0;
};

/// The browser inside the main view.
class Browser {
public:
    virtual ~Browser() = default;
    /// Shows the page when it comes; a page that does not is no error.
    virtual void Navigate(std::string_view address) = 0;
};

/// Measures text in the font of the chat grids.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    virtual int LineHeight() const = 0; ///< pixels
    /// Lines that the text takes in a column so many pixels wide, at least 1.
    virtual int LineCount(std::string_view text, int width) const = 0;
    virtual double TwipsPerPixel() const = 0;
};

} // namespace ombrin
