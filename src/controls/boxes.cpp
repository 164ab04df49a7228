#include "controls/boxes.h"

namespace ombrin {

namespace {

bool HasButton(BoxButtons buttons, BoxResult button) {
    switch (buttons) {
    case BoxButtons::Ok:
        return button == BoxResult::Ok;
    case BoxButtons::OkCancel:
        return button == BoxResult::Ok || button == BoxResult::Cancel;
    case BoxButtons::YesNo:
        return button == BoxResult::Yes || button == BoxResult::No;
    }
    return false;
}

} // namespace

MessageBoxForm::MessageBoxForm(ModalStack& stack, std::string text, std::string title, BoxButtons buttons, BoxIcon icon)
    : Form(stack, "MessageBox", std::move(title), FormKind::MessageBox), text(std::move(text)), buttons(buttons),
      icon(icon) {
    // A question of Yes and No has no close box.
    if (buttons == BoxButtons::Ok) CloseBox = [this] { Press(BoxResult::Ok); };
    if (buttons == BoxButtons::OkCancel) CloseBox = [this] { Press(BoxResult::Cancel); };
}

bool MessageBoxForm::Press(BoxResult button) {
    if (!HasButton(buttons, button)) return false;
    result = button;
    Hide();
    return true;
}

InputBoxForm::InputBoxForm(ModalStack& stack, std::string prompt)
    : Form(stack, "InputBox", "", FormKind::InputBox), prompt(std::move(prompt)) {
    CloseBox = [this] { Cancel(); };
    Default = &Answer;
}

void InputBoxForm::Accept() {
    result = Answer.Text();
    Hide();
}

void InputBoxForm::Cancel() {
    result.clear();
    Hide();
}

FileChooserForm::FileChooserForm(ModalStack& stack, std::string title, std::string pattern)
    : Form(stack, "FileChooser", std::move(title), FormKind::FileChooser), pattern(std::move(pattern)) {
    CloseBox = [this] { Cancel(); };
}

void FileChooserForm::Accept(std::string_view path) {
    result = path;
    Hide();
}

void FileChooserForm::Cancel() {
    result.clear();
    Hide();
}

ColourChooserForm::ColourChooserForm(ModalStack& stack, Colour start)
    : Form(stack, "ColourChooser", "", FormKind::ColourChooser), start(start) {
    CloseBox = [this] { Cancel(); };
}

void ColourChooserForm::Accept(Colour colour) {
    result = colour;
    Hide();
}

void ColourChooserForm::Cancel() {
    result.reset();
    Hide();
}

BoxResult Boxes::Show(const std::string& text, const std::string& title, BoxButtons buttons, BoxIcon icon) {
    MessageBoxForm box(stack, text, title, buttons, icon);
    box.ShowModal();
    return box.Result();
}

std::string Boxes::Ask(const std::string& prompt) {
    InputBoxForm box(stack, prompt);
    box.ShowModal();
    return box.Result();
}

std::string Boxes::ChooseFile(const std::string& title, const std::string& pattern) {
    FileChooserForm chooser(stack, title, pattern);
    chooser.ShowModal();
    return chooser.Result();
}

std::optional<Colour> Boxes::ChooseColour(Colour start) {
    ColourChooserForm chooser(stack, start);
    chooser.ShowModal();
    return chooser.Result();
}

} // namespace ombrin
