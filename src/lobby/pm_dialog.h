// The dialog of private messages: one a client, with all lines and the recipient of the next.
#pragma once

#include "controls/flex_grid.h"
#include "controls/form.h"
#include "controls/simple_models.h"
#include "foundation/settings.h"
#include "foundation/trap.h"
#include "platform/desktop.h"
#include "session/wire/link.h"
#include "ui/text/messages.h"

#include <string>

namespace ombrin {

/// Shows what the server delivers, the user's own messages too; sending writes nothing into the grid.
class PMDialog : public Form {
public:
    PMDialog(ModalStack& stack, Settings& settings, Messages& messages, Localisation& language, Clipboard& clipboard,
             Trap& trap);

    Label MessageOwner{*this, "MessageOwner", "Message to:"};
    ComboBox User{*this, "User", ComboBox::Style::FreeText};
    FlexGrid msflxPMLines{*this, "msflxPMLines"};
    TextBox PrivateMessage{*this, "PrivateMessage", {}};
    Button PMSend{*this, "PMSend", "Send"};
    Button OKButton{*this, "OKButton", "Close"};

    // Given before each use:
    std::string Recipient;
    Link* Socket = nullptr;
    std::string UserData, OwnName;

    /// Addresses the dialog.
    void SetRecipient(std::string_view name);

private:
    void Form_Load();
    void PMSend_Click();
    void SendData(std::string_view data);
    void PrivateMessage_KeyPress(int& key);
    void OKButton_Click();
    void msflxPMLines_Click();

    Settings& settings;
    Messages& messages;
    Localisation& language;
    Trap& trap;
};

} // namespace ombrin
