#include "lobby/new_room.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "session/wire/names.h"

namespace ombrin {

namespace {

constexpr int kFewestUsers = 2, kMostUsers = 32;

/// The boxes stop earlier, and the text for the user speaks of 20.
constexpr std::size_t kLongestRoomPassword = 40;

/// " 2" to " 9", "10" to "32".
std::vector<std::string> NumbersOfUsers() {
    std::vector<std::string> numbers;
    for (int users = kFewestUsers; users <= kMostUsers; ++users)
        numbers.push_back(Join(users < 10 ? " " : "", std::to_string(users)));
    return numbers;
}

} // namespace

NewRoom::NewRoom(ModalStack& stack, Messages& messages, Localisation& language, Trap& trap)
    : Form(stack, "NewRoom", "New Room"), messages(messages), language(language), trap(trap) {
    MaxUsers.SetList(NumbersOfUsers());
    MaxUsers.Choose(0);
    Password.SetVisible(false);
    Password.SetEnabled(false);
    Load = [this] { Form_Load(); };
    Paint = [this] { NewRoomName.SetFocus(); };
    CloseBox = [this] { CancelButton_Click(); };
    PasswordRoom.Click = [this] { PasswordRoom_Click(); };
    OKButton.Click = [this] { OKButton_Click(); };
    CancelButton.Click = [this] { CancelButton_Click(); };
    for (TextBox* box : {&NewRoomName, &Password})
        box->KeyPress = [this](int& key) {
            if (key != UserInput::kEnter) return;
            key = 0;
            OKButton_Click();
        };
}

void NewRoom::Form_Load() {
    trap(
        __func__,
        [&] {
            NewRoomName.SetText("");
            Password.SetText("");
            PasswordRoom.SetOn(false);
            MaxUsers.Choose(0);
            language.TranslateForm(*this);
        },
        Name());
}

void NewRoom::PasswordRoom_Click() {
    trap(
        __func__,
        [&] {
            Password.SetVisible(PasswordRoom.On());
            Password.SetEnabled(PasswordRoom.On());
            if (PasswordRoom.On()) Password.SetFocus();
        },
        Name());
}

void NewRoom::OKButton_Click() {
    trap(
        __func__,
        [&] {
            if (PasswordRoom.On()) {
                if (Password.Text().empty()) {
                    messages.DisplayMessage(text::kError23);
                    return;
                }
                if (FirstOf(Password.Text(), kNotInRooms) != '\0') {
                    messages.boxes.ShowPlain(
                        Join("ERROR:  Room passwords cannot contain any of the following characters: ", kNotInRooms));
                    return;
                }
                if (Password.Text().size() > kLongestRoomPassword) {
                    messages.DisplayMessage(text::kError22);
                    return;
                }
            }
            Create_Room();
        },
        Name());
}

void NewRoom::Create_Room() {
    trap(
        __func__,
        [&] {
            NewRoomName.SetText(std::string(Trim(NewRoomName.Text())));
            if (NewRoomName.Text().empty()) {
                messages.DisplayMessage(text::kError21);
                return;
            }
            if (NewRoomName.Text().size() > kLongestRoomName) {
                messages.DisplayMessage(text::kError20);
                return;
            }
            if (FirstOf(NewRoomName.Text(), kNotInRooms) != '\0') {
                messages.boxes.ShowPlain(
                    Join("ERROR:  Room names cannot contain any of the following characters: ", kNotInRooms));
                return;
            }
            Hide();
        },
        Name());
}

void NewRoom::CancelButton_Click() {
    trap(
        __func__,
        [&] {
            NewRoomName.SetText("");
            Hide();
        },
        Name());
}

} // namespace ombrin
