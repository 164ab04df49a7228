#include "lobby/exe_main_lobby.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "lobby/lobby_list.h"

#include <utility>

namespace ombrin {

namespace {

constexpr std::string_view kSection = "Lobby Passwords", kRemember = "RememberPasswords";
constexpr std::string_view kReserved = ":;~";

} // namespace

ExeMainLobby::ExeMainLobby(ModalStack& stack, Settings& settings, Session& session, Localisation& language, Trap& trap)
    : Form(stack, "ExeMainLobby", "Ardvelle Game Selection"), settings(settings), session(session), language(language),
      trap(trap) {
    Load = [this] { Form_Load(); };
    Activate = [this] { Form_Activate(); };
    Deactivate = [this] { this->trap.log.TraceMessage("main lobby dialog closed"); };
    CloseBox = [this] { Hide(); };
    ExeGameList.Click = [this] {
        GetLobbyPassword();
        Password.SetFocus();
    };
    ExeGameList.DblClick = [this] { ExeGameSelect_Click(); };
    ExeGameSelect.Click = [this] { ExeGameSelect_Click(); };
    Password.GotFocus = [this] { Password.SelectAll(); };
    Password.KeyPress = [this](const int& key) {
        if (key == UserInput::kEnter) ExeGameSelect_Click();
    };
    RememberPasswords.Click = [this] {
        this->trap(
            "RememberPasswords_Click",
            [&] { this->settings.SaveSetting(kSection, kRemember, RememberPasswords.On() ? "1" : "0"); }, Name());
    };
}

void ExeMainLobby::Form_Load() {
    trap(
        __func__,
        [&] {
            LoadTracingOn(session, settings);
            Fill(std::exchange(LobbyList, {}));
            if (ExeGameList.rows.Count() > 0) ExeGameList.Select(ExeGameList.rows.At(0), true);
            RememberPasswords.SetOn(settings.GetSetting(kSection, kRemember) == "1");
            language.SetFLOnDialog(*this);
        },
        Name());
}

void ExeMainLobby::Fill(std::string_view data) {
    bool first = true;
    for (LobbyEntry entry; CutLobbyEntry(data, entry);) {
        if (std::exchange(first, false)) ExeGameList.Clear();
        ExeGameList.Add(LobbyRow(entry.name, entry.count));
    }
}

void ExeMainLobby::AddGamesToListBox() {
    trap(
        __func__,
        [&] {
            EnsureLoaded();
            Fill(LobbyList);
            if (!LobbyList.empty() && ExeGameList.rows.Count() > 0) ExeGameList.Select(ExeGameList.rows.At(0), true);
        },
        Name());
}

void ExeMainLobby::Form_Activate() {
    trap.log.TraceMessage("main lobby dialog displayed");
    GetLobbyPassword();
    const LanguageText& status = StatusText == "Ready" ? text::kReady : text::kInvalidLobbyPassword;
    language.SetFLStatusbar(StatusBar, status.key, status.english);
    Password.SetFocus();
}

std::string ExeMainLobby::SelectedLobby() const {
    return std::string(Trim(StrExtractLeft(ExeGameList.SelectedText(), ":")));
}

void ExeMainLobby::GetLobbyPassword() {
    trap(
        __func__,
        [&] {
            Password.SetText("");
            if (RememberPasswords.On() && ExeGameList.SelectedRow())
                Password.SetText(settings.GetSetting(kSection, SelectedLobby()));
            language.SetFLStatusbar(StatusBar, text::kReady.key, text::kReady.english);
        },
        Name());
}

void ExeMainLobby::ExeGameSelect_Click() {
    trap(
        __func__,
        [&] {
            if (FirstOf(Password.Text(), kReserved) != '\0') {
                language.SetFLStatusbar(StatusBar, text::kInvalidLobbyPassword.key,
                                        text::kInvalidLobbyPassword.english);
                return;
            }
            LobbySelected = true;
            Hide();
            if (ExeGameList.SelectedRow()) settings.SaveSetting(kSection, SelectedLobby(), Password.Text());
        },
        Name());
}

} // namespace ombrin
