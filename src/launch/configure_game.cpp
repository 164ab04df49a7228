#include "launch/configure_game.h"

#include "lobby/text_colour.h"
#include "session/wire/codec.h"

#include <algorithm>

namespace ombrin {

ConfigureGame::ConfigureGame(ModalStack& stack, Settings& settings, Profile& profile, Session& session, Boxes& boxes,
                             Localisation& language, Trap& trap)
    : Form(stack, "ConfigureGame", "Configure"), settings(settings), records(settings, profile), session(session),
      boxes(boxes), language(language), trap(trap) {
    Load = [this] { Form_Load(); };
    CloseBox = [this] { CancelButton_Click(); };
    DirectPlay.Click = [this] { DirectPlay_Click(true); };
    NoDirectPlay.Click = [this] { DirectPlay_Click(false); };
    BrowseGames.Click = [this] { BrowseGames_Click(); };
    btnTextColor.Click = [this] { btnTextColor_Click(); };
    DisplayIP.Click = [this] { DisplayIP_Click(); };
    Tracing.Click = [this] { Tracing_Click(); };
    EnableChatLineSounds.Click = [this] { EnableChatLineSounds_Click(); };
    OKButton.Click = [this] { OKButton_Click(); };
    CancelButton.Click = [this] { CancelButton_Click(); };
}

void ConfigureGame::Form_Load() {
    trap(
        __func__,
        [&] {
            DisplayIP.SetOn(settings.GetSetting("Settings", "PublicIP", "N") == "Y");
            TracingEnabled = settings.GetSetting("Settings", "TracingOn") == "1";
            Tracing.SetOn(TracingEnabled);
            session.ChatSoundsOn = settings.GetSetting("Settings", "EnableChatLineSounds") == "1";
            EnableChatLineSounds.SetOn(session.ChatSoundsOn);
            CurLanguage.SetCaption(language.CurrentLanguage());
            language.SetFLOnDialog(*this);
            TextColor = ombrin::TextColor(settings, kGreen);
            TextColorBox.SetColour(TextColor);
            if (!session.ConfiguredGame.empty()) SetDlgItems();
        },
        Name());
}

void ConfigureGame::SetDlgItems() {
    trap(
        __func__,
        [&] {
            if (session.ConfiguredGame.empty()) {
                for (Control* control :
                     std::initializer_list<Control*>{&NoDirectPlay, &GameFile, &BrowseGames, &DirectPlay, &DPGame})
                    control->SetEnabled(false);
                return;
            }
            SelectedDPGame = records.DirectPlayApplication(session.ConfiguredGame);
            std::vector<std::string> names;
            std::string_view list = DPGameList;
            for (auto name = GetCommand(list, kFieldEnd); !name.empty(); name = GetCommand(list, kFieldEnd))
                names.emplace_back(name);
            DPGame.SetList(names);
            if (SelectedDPGame.empty())
                DPGame.SetText(names.empty() ? std::string() : names.front());
            else
                DPGame.SetText(std::find(names.begin(), names.end(), SelectedDPGame) == names.end() ? std::string()
                                                                                                    : SelectedDPGame);
            NoDirectPlay.SetEnabled(true);
            DirectPlay.SetEnabled(true);
            const bool on = records.UsesDirectPlay(session.ConfiguredGame);
            (on ? DirectPlay : NoDirectPlay).SetOn(true);
            DirectPlay_Click(on);
        },
        Name());
}

/// Nothing is stored yet.
void ConfigureGame::DirectPlay_Click(bool on) {
    GameFile.SetEnabled(!on);
    BrowseGames.SetEnabled(!on);
    DPGame.SetEnabled(on);
}

void ConfigureGame::BrowseGames_Click() {
    trap(
        __func__,
        [&] {
            const std::string file = boxes.ChooseFile("", "");
            if (!file.empty()) GameFile.SetText(file); // a cancel leaves what was there
        },
        Name());
}

void ConfigureGame::btnTextColor_Click() {
    trap(
        __func__,
        [&] {
            const auto colour = boxes.ChooseColour(TextColor);
            if (!colour) return;
            TextColor = *colour;
            TextColorBox.SetColour(TextColor);
        },
        Name());
}

// The boxes count at once, however the dialog ends.

void ConfigureGame::DisplayIP_Click() {
    trap(
        __func__, [&] { settings.SaveSetting("Settings", "PublicIP", DisplayIP.On() ? "Y" : "N"); }, Name());
}

void ConfigureGame::Tracing_Click() {
    trap(
        __func__,
        [&] {
            TracingEnabled = Tracing.On();
            settings.SaveSetting("Settings", "TracingOn", TracingEnabled ? "1" : "0");
        },
        Name());
}

void ConfigureGame::EnableChatLineSounds_Click() {
    trap(
        __func__,
        [&] {
            session.ChatSoundsOn = EnableChatLineSounds.On();
            settings.SaveSetting("Settings", "EnableChatLineSounds", session.ChatSoundsOn ? "1" : "0");
        },
        Name());
}

void ConfigureGame::OKButton_Click() {
    trap(
        __func__,
        [&] {
            if (session.ConfiguredGame.empty()) {
                Hide();
                return;
            }
            records.SaveUsesDirectPlay(session.ConfiguredGame, DirectPlay.On());
            if (DirectPlay.On()) GameFile.SetText("");
            records.SaveDirectPlayApplication(session.ConfiguredGame, DPGame.Text());
            SetDlgItems();
            Hide();
        },
        Name());
}

void ConfigureGame::CancelButton_Click() {
    trap(
        __func__,
        [&] {
            SetDlgItems();
            GameFile.SetText("");
            Hide();
        },
        Name());
}

} // namespace ombrin
