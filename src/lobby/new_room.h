// The dialog for a new room. Its fields keep their content from one room to the next.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/messages.h"

namespace ombrin {

/// NewRoomName is empty after a cancel.
class NewRoom : public Form {
public:
    NewRoom(ModalStack& stack, Messages& messages, Localisation& language, Trap& trap);

    Label Label1{*this, "Label1", "Room Name :"};
    TextBox NewRoomName{*this, "NewRoomName", {.maxLength = 40}};
    Label Label2{*this, "Label2", "Max Users:"};
    ComboBox MaxUsers{*this, "MaxUsers", ComboBox::Style::ListOnly};
    CheckBox PasswordRoom{*this, "PasswordRoom", "Password:"};
    TextBox Password{*this, "Password", {.maxLength = 20, .password = true}};
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "Cancel"};

private:
    void Form_Load();
    void PasswordRoom_Click();
    void OKButton_Click();
    void CancelButton_Click();
    void Create_Room();

    Messages& messages;
    Localisation& language;
    Trap& trap;
};

} // namespace ombrin
