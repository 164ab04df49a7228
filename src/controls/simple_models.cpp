#include "controls/simple_models.h"

#include <algorithm>

namespace ombrin {

void OptionButton::SetOn(bool value) {
    if (value)
        for (Control* other : Parent().Controls())
            if (other != this && other->Kind() == ControlKind::OptionButton) {
                auto* option = static_cast<OptionButton*>(other);
                option->Set(option->on, false);
            }
    Set(on, value);
}

void TextBox::SetText(std::string_view value) {
    text = value;
    Select(0, 0);
}

void TextBox::Type(std::string_view value) {
    text = value.substr(0, Limit());
    selStart = text.size();
    selLength = 0;
    Changed();
}

void TextBox::TypeCharacter(char character) {
    constexpr char kBackspace = 8;
    std::size_t start = selStart, length = selLength;
    if (character == kBackspace && length == 0 && start > 0) {
        --start;
        length = 1;
    }
    text.erase(start, length);
    if (character != kBackspace && text.size() < Limit()) text.insert(start++, 1, character);
    Select(start, 0);
    Changed();
}

void TextBox::Select(std::size_t start, std::size_t length) {
    selStart = std::min(start, text.size());
    selLength = std::min(length, text.size() - selStart);
    Changed();
}

bool ComboBox::Choose(std::size_t index) {
    if (index >= list.size()) return false;
    SetText(list[index]);
    return true;
}

} // namespace ombrin
