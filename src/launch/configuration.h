// The button that opens the dialog for the game and the client's options, and what is stored behind it.
#pragma once

#include "launch/about_box.h"
#include "launch/configure_game.h"
#include "lobby/auto_start.h"
#include "lobby/lobby_directory.h"
#include "lobby/text_colour.h"
#include "platform/processes.h"

namespace ombrin {

struct ConfigurationDialogs {
    ConfigureGame& configure;
    LobbyFilter& filter;
    frmAbout& about;
};

class Configuration {
public:
    Configuration(Desk desk, ConfigurationDialogs dialogs, AutoStart& autoStart, LobbyDirectory& lobbies,
                  TextColours& textColours, Processes& processes);

    void Configure_Click();

private:
    void ChangeLanguage_Click();
    void StoreGame();

    Desk desk;
    ConfigurationDialogs dialogs;
    AutoStart& autoStart;
    LobbyDirectory& lobbies;
    TextColours& textColours;
    Processes& processes;
    GameRecords records;
};

} // namespace ombrin
