// Message boxes and input boxes. Each is a form of its own while it is up, so that they can stand over one another.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "foundation/log.h"

#include <optional>

namespace ombrin {

/// Standard values of message boxes.
enum class BoxButtons : int { Ok = 0, OkCancel = 1, YesNo = 4 };
enum class BoxIcon : int { None = 0, Exclamation = 48 };
enum class BoxResult : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

class MessageBoxForm : public Form {
public:
    MessageBoxForm(ModalStack& stack, std::string text, std::string title, BoxButtons buttons, BoxIcon icon);
    const std::string& Text() const { return text; }
    BoxButtons Buttons() const { return buttons; }
    BoxIcon Icon() const { return icon; }
    /// False when the box has no such button.
    bool Press(BoxResult button);
    BoxResult Result() const { return result; }

private:
    std::string text;
    BoxButtons buttons;
    BoxIcon icon;
    BoxResult result = BoxResult::Ok;
};

class InputBoxForm : public Form {
public:
    InputBoxForm(ModalStack& stack, std::string prompt);
    const std::string& Prompt() const { return prompt; }
    TextBox Answer{*this, "Answer", {}};
    void Accept();
    void Cancel();
    const std::string& Result() const { return result; } ///< empty after a cancel

private:
    std::string prompt, result;
};

/// The choice of a file that is there.
class FileChooserForm : public Form {
public:
    /// `pattern` as "*.exe"; empty shows every file.
    FileChooserForm(ModalStack& stack, std::string title, std::string pattern);
    const std::string& Pattern() const { return pattern; }
    void Accept(std::string_view path);
    void Cancel();
    const std::string& Result() const { return result; } ///< empty after a cancel

private:
    std::string pattern, result;
};

class ColourChooserForm : public Form {
public:
    ColourChooserForm(ModalStack& stack, Colour start);
    Colour Start() const { return start; }
    void Accept(Colour colour);
    void Cancel();
    std::optional<Colour> Result() const { return result; } ///< nothing after a cancel

private:
    Colour start;
    std::optional<Colour> result;
};

/// A title for boxes that are given none.
inline constexpr const char* kUsualTitle = "Ombrin";

class Boxes : public PlainBox {
public:
    explicit Boxes(ModalStack& stack) : stack(stack) {}
    /// Waits for the answer.
    BoxResult Show(const std::string& text, const std::string& title, BoxButtons buttons = BoxButtons::Ok,
                   BoxIcon icon = BoxIcon::None);
    void ShowPlain(const std::string& text) override { Show(text, kUsualTitle); }
    std::string Ask(const std::string& prompt);
    std::string ChooseFile(const std::string& title, const std::string& pattern);
    std::optional<Colour> ChooseColour(Colour start);

private:
    ModalStack& stack;
};

} // namespace ombrin
