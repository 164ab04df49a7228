// How the game of a lobby is started on this machine. The lobby's name is the game's, compared exactly.
#pragma once

#include "foundation/profile.h"
#include "foundation/settings.h"

#include <string>
#include <string_view>

namespace ombrin {

/// Five stored values. A game is configured when its DirectPlay switch or its game file is not empty; the switch goes
/// first.
class GameRecords {
public:
    GameRecords(Settings& settings, Profile& profile) : settings(settings), profile(profile) {}

    std::string GameFile(std::string_view game) { return settings.GetSetting("Games", game); }
    void SaveGameFile(std::string_view game, std::string_view path) { settings.SaveSetting("Games", game, path); }

    /// The display name of an application.
    std::string DirectPlayApplication(std::string_view game) { return settings.GetSetting("DirectPlay", game); }
    void SaveDirectPlayApplication(std::string_view game, std::string_view application) {
        settings.SaveSetting("DirectPlay", game, application);
    }
    bool UsesDirectPlay(std::string_view game) { return !settings.GetSetting("DirectPlay", SwitchOf(game)).empty(); }
    void SaveUsesDirectPlay(std::string_view game, bool on) {
        settings.SaveSetting("DirectPlay", SwitchOf(game), on ? "Y" : "");
    }

    /// Of the executable, so that games that share it share them. `exeBase` names the section; an empty one has none.
    std::string ServerOptions(std::string_view exeBase) {
        return profile.ReadIniValue("AV.ini", exeBase, "ServerOptions");
    }
    std::string ClientOptions(std::string_view exeBase) {
        return profile.ReadIniValue("AV.ini", exeBase, "ClientOptions");
    }
    void SaveOptions(std::string_view exeBase, std::string_view server, std::string_view client) {
        profile.SetIniValue("AV.ini", exeBase, "ServerOptions", server);
        profile.SetIniValue("AV.ini", exeBase, "ClientOptions", client);
    }

private:
    static std::string SwitchOf(std::string_view game) { return "DPEnabled" + std::string(game); }

    Settings& settings;
    Profile& profile;
};

} // namespace ombrin
