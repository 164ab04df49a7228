#include "launch/configuration.h"

#include "launch/game_paths.h"

namespace ombrin {

Configuration::Configuration(Desk desk, ConfigurationDialogs dialogs, AutoStart& autoStart, LobbyDirectory& lobbies,
                             TextColours& textColours, Processes& processes)
    : desk(desk), dialogs(dialogs), autoStart(autoStart), lobbies(lobbies), textColours(textColours),
      processes(processes), records(desk.settings, desk.profile) {
    desk.view.Configure.Click = [this] { Configure_Click(); };
    dialogs.configure.ChangeLanguage.Click = [this] { ChangeLanguage_Click(); };
    dialogs.configure.About.Click = [this] {
        this->desk.trap(
            "About_Click", [&] { this->dialogs.about.ShowModal(); }, this->dialogs.configure.Name());
    };
}

void Configuration::Configure_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Configure button pressed");
        ConfigureGame& dialog = dialogs.configure;
        const std::string game = desk.session.m_CurrentLobby;
        dialog.EnsureLoaded();
        if (!game.empty()) {
            const std::string path = records.GameFile(game);
            dialog.GameFile.SetText(path);
            dialog.ServerOptions.SetText(records.ServerOptions(ExeBase(path)));
            dialog.ClientOptions.SetText(records.ClientOptions(ExeBase(path)));
        }
        dialog.SetDlgItems();
        dialog.ShowModal();
        if (!game.empty()) {
            desk.session.TracingOn = dialog.TracingEnabled;
            if (!dialog.GameFile.Text().empty()) StoreGame();
            autoStart.CheckAutoStart();
        }
        desk.settings.SaveSetting("Settings", "TextColor", std::to_string(dialog.TextColor));
        textColours.SetTextColor();
    });
}

void Configuration::StoreGame() {
    const ConfigureGame& dialog = dialogs.configure;
    const std::string path = dialog.GameFile.Text();
    if (const std::string_view directory = DirectoryOf(path); !directory.empty()) processes.ChDir(directory);
    records.SaveGameFile(desk.session.m_CurrentLobby, path);
    desk.view.ConfigWarning.SetCaption("");
    records.SaveOptions(ExeBase(path), dialog.ServerOptions.Text(), dialog.ClientOptions.Text());
}

/// A dialog of its own each time, with the lobbies of the last list.
void Configuration::ChangeLanguage_Click() {
    desk.trap(
        __func__,
        [&] {
            if (dialogs.filter.Visible()) throw RuntimeError(ErrorNumber::FormAlreadyShown);
            dialogs.filter.Create(lobbies.ListData());
            dialogs.filter.ShowModal();
        },
        dialogs.configure.Name());
}

} // namespace ombrin
