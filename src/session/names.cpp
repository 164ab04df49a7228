#include "session/names.h"

#include "foundation/text.h"

namespace ombrin {

void CheckForValidUserName(std::string_view text, bool& valid, StatusBar& statusBar) {
    valid = true;
    if (text.empty()) {
        statusBar.SetText("All fields must be filled in.");
        valid = false;
    }
    if (text.size() > kNameLength) {
        statusBar.SetText(Join("Names or passwords cannot exceed ", std::to_string(kNameLength), " characters."));
        valid = false;
        return;
    }
    if (FirstOf(text, kForbiddenCharacters) != '\0') {
        statusBar.SetText(Join("Invalid characters: ", kForbiddenCharacters));
        valid = false;
    }
}

} // namespace ombrin
