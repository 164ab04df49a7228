// The dialog for the game of the lobby and for the options of the whole client. One object, loaded once: what must be
// fresh at each opening is set by SetDlgItems and by who opens it.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "lobby/game_record.h"
#include "session/wire/session.h"
#include "ui/text/messages.h"

namespace ombrin {

/// An empty GameFile after the dialog means that nothing of it is to be written.
class ConfigureGame : public Form {
public:
    ConfigureGame(ModalStack& stack, Settings& settings, Profile& profile, Session& session, Boxes& boxes,
                  Localisation& language, Trap& trap);

    Frame Frame1{*this, "Frame1", "How to launch games"};
    OptionButton DirectPlay{*this, "DirectPlay", "Use DirectPlay"};
    Label Label2{*this, "Label2", "DirectPlay Game:"};
    ComboBox DPGame{*this, "DPGame", ComboBox::Style::ListOnly};
    OptionButton NoDirectPlay{*this, "NoDirectPlay", "Do not use DirectPlay"};
    Label Label1{*this, "Label1", "Game File :"};
    TextBox GameFile{*this, "GameFile", {}};
    Button BrowseGames{*this, "BrowseGames", "Browse..."};
    Label Label4{*this, "Label4", "Server Options"};
    TextBox ServerOptions{*this, "ServerOptions", {}};
    Label Label6{*this, "Label6", "Client Options"};
    TextBox ClientOptions{*this, "ClientOptions", {}};
    Frame Frame4{*this, "Frame4", "Game Filter"};
    Button ChangeLanguage{*this, "ChangeLanguage", "Filter"};
    Label Label3{*this, "Label3", "Current language:"};
    Label CurLanguage{*this, "CurLanguage"};
    Frame Frame5{*this, "Frame5", "IP Address"};
    CheckBox DisplayIP{*this, "DisplayIP", "Allow others to view your IP address."};
    CheckBox Tracing{*this, "Tracing", "Low level tracing"};
    Frame Frame6{*this, "Frame6", "Sound"};
    CheckBox EnableChatLineSounds{*this, "EnableChatLineSounds", "Enable chat line sounds."};
    Frame Colors{*this, "Colors", "Text"};
    Label Label5{*this, "Label5", "Color:"};
    ColourSwatch TextColorBox{*this, "TextColorBox"};
    Button btnTextColor{*this, "btnTextColor", "Change..."};
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "Cancel"};
    Button About{*this, "About", "About..."};

    std::string DPGameList; ///< names of applications, each followed by ";"
    bool TracingEnabled = false;
    Colour TextColor = 0;

    /// Brings the controls into line with the stored record of the session's ConfiguredGame.
    void SetDlgItems();

private:
    void Form_Load();
    void DirectPlay_Click(bool on);
    void BrowseGames_Click();
    void btnTextColor_Click();
    void DisplayIP_Click();
    void Tracing_Click();
    void EnableChatLineSounds_Click();
    void OKButton_Click();
    void CancelButton_Click();

    Settings& settings;
    GameRecords records;
    Session& session;
    Boxes& boxes;
    Localisation& language;
    Trap& trap;
    std::string SelectedDPGame;
};

} // namespace ombrin
