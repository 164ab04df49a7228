// The folders of one client: everything lies below one root, which the host settles at start.
#pragma once

#include <string>

namespace ombrin {

/// All without a closing separator.
struct Places {
    std::string root;
    std::string patcher{}; ///< as the system's packages have installed it; empty where they have not

    std::string WindowsDirectory() const { return root + "/windows"; } ///< AV.ini, AVfLang.ini
    std::string SystemDirectory() const { return root + "/system"; }   ///< the log
    std::string AppPath() const { return root + "/app"; }              ///< the program's own folder
    std::string SettingsFile() const { return root + "/settings.ini"; }
    std::string RegistryFile() const { return root + "/registry.ini"; }
};

} // namespace ombrin
