// The logon dialog.
#pragma once

#include "controls/boxes.h"
#include "controls/form.h"
#include "foundation/settings.h"
#include "ui/configurable_buttons.h"
#include "ui/text/localisation.h"

namespace ombrin {

class UsrNmPwIP : public Form {
public:
    UsrNmPwIP(ModalStack& stack, Settings& settings, Localisation& language, Boxes& boxes, ConfigurableButtons& targets,
              Trap& trap);

    Image BackgroundImage{*this, "BackgroundImage"};
    Image LogonImage{*this, "LogonImage"};
    Image SplashImage{*this, "SplashImage"};
    Label Welcome{*this, "Welcome", "Welcome to Velmora!  We hope that you enjoy your gaming experience."};
    Label Label1{*this, "Label1", "Logon Name:"};
    TextBox LogonName{*this, "LogonName", {.maxLength = 20}};
    Label Label2{*this, "Label2", "Password:"};
    TextBox Password{*this, "Password", {.maxLength = 20, .password = true}};
    Label Label3{*this, "Label3", "Host Machine:"};
    TextBox HostMachine{*this, "HostMachine", {.maxLength = 200}};
    Label Label4{*this, "Label4", "HTTP Port:"};
    TextBox HTTPPort{*this, "HTTPPort", {.maxLength = 5}};
    Button Connect{*this, "Connect", "Connect"};
    Button NewAccount{*this, "NewAccount", "Create Account"};
    Button CloseButton{*this, "CloseButton", "Close"};

    /// Twips of the view that the dialog covers; its layout reads nothing else for the size.
    std::int16_t m_iViewWidth = 0, m_iViewHeight = 0;
    /// Stacks the controls around the centre. Their places are in twips.
    void UsrNmPwIP_Form_Resize();

    bool Closed = false;         ///< the user pressed Close
    bool ConnectPressed = false; ///< the user pressed Connect and the input passed the tests
    /// The user wants an account, and the settings name no address for it: the account dialog makes one.
    bool NewAccountPressed = false;

private:
    void Form_Load();
    void Connect_Click();
    void CloseButton_Click();
    void NewAccount_Click();
    void KeepHostAndPort();
    bool HasForbidden(const TextBox& box, std::string_view what);

    Settings& settings;
    Localisation& language;
    Boxes& boxes;
    ConfigurableButtons& targets;
    Trap& trap;
};

} // namespace ombrin
