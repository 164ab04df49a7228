#include "session/logon_dialog.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "session/names.h"

namespace ombrin {

namespace {

constexpr std::string_view kSection = "Settings", kUsualPort = "80";

} // namespace

UsrNmPwIP::UsrNmPwIP(ModalStack& stack, Settings& settings, Localisation& language, Boxes& boxes,
                     ConfigurableButtons& targets, Trap& trap)
    : Form(stack, "UsrNmPwIP", "Ardvelle Connect"), settings(settings), language(language), boxes(boxes),
      targets(targets), trap(trap) {
    Load = [this] { Form_Load(); };
    CloseBox = [this] { CloseButton_Click(); };
    Connect.Click = [this] { Connect_Click(); };
    CloseButton.Click = [this] { CloseButton_Click(); };
    NewAccount.Click = [this] { NewAccount_Click(); };
    for (TextBox* box : {&LogonName, &Password, &HostMachine, &HTTPPort}) {
        box->GotFocus = [box] { box->SelectAll(); };
        box->KeyPress = [this](const int& key) {
            if (key == UserInput::kEnter) Connect_Click();
        };
    }
    Default = &LogonName;
}

void UsrNmPwIP::Form_Load() {
    trap(
        __func__,
        [&] {
            language.TranslateForm(*this);
            const struct {
                TextBox& box;
                std::string_view key;
            } kStored[] = {
                {LogonName, "UserName"}, {Password, "UserPassword"}, {HostMachine, "IP"}, {HTTPPort, "HTTPPort"}};
            for (const auto& row : kStored) {
                const std::string value = settings.GetSetting(kSection, row.key);
                if (!value.empty()) row.box.SetText(value);
            }
            if (HTTPPort.Text().empty()) HTTPPort.SetText(kUsualPort);
        },
        Name());
}

bool UsrNmPwIP::HasForbidden(const TextBox& box, std::string_view what) {
    if (FirstOf(box.Text(), kForbiddenCharacters) == '\0') return false;
    boxes.ShowPlain(Join("ERROR:  ", what, " cannot contain any of the following characters: ", kForbiddenCharacters));
    return true;
}

void UsrNmPwIP::Connect_Click() {
    trap(
        __func__,
        [&] {
            if (LogonName.Text().empty()) return;
            if (HasForbidden(LogonName, "usernames")) return;
            settings.SaveSetting(kSection, "UserName", LogonName.Text());
            if (!Password.Text().empty()) {
                if (HasForbidden(Password, "passwords")) return;
                settings.SaveSetting(kSection, "UserPassword", Password.Text());
            }
            KeepHostAndPort();
            ConnectPressed = true;
            Hide();
        },
        Name());
}

/// A scheme in front of the host is cut off, in the two spellings that people paste.
void UsrNmPwIP::KeepHostAndPort() {
    constexpr std::string_view kUpper = "HTTP://", kLower = "http://";
    if (const std::string& host = HostMachine.Text(); !host.empty()) {
        if (host.starts_with(kUpper) || host.starts_with(kLower)) HostMachine.SetText(std::string(host, kUpper.size()));
        settings.SaveSetting(kSection, "IP", host);
    }
    if (!HTTPPort.Text().empty()) settings.SaveSetting(kSection, "HTTPPort", HTTPPort.Text());
}

void UsrNmPwIP::CloseButton_Click() {
    trap(
        __func__,
        [&] {
            trap.log.TraceMessage("close button pressed client will be shut down");
            Closed = true;
            ConnectPressed = false;
            Hide();
        },
        Name());
}

/// An operator's page for accounts goes first; without one the account dialog does it.
void UsrNmPwIP::NewAccount_Click() {
    trap(
        __func__,
        [&] {
            if (targets.HasTarget("CreateAccount", "CreateAccountURL"))
                return targets.ConfigurableMenuOrButtonClicked("CreateAccount", "CreateAccountURL");
            KeepHostAndPort();
            NewAccountPressed = true;
            Hide();
        },
        Name());
}

} // namespace ombrin
