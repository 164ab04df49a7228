// The profile routines as the client's own routines call them, each behind its trap.
#pragma once

#include "foundation/ini_files.h"
#include "foundation/trap.h"

#include <string>
#include <string_view>

namespace ombrin {

/// A file that cannot be read or written costs a box, and the caller goes on.
class Profile {
public:
    Profile(IniFiles& files, Trap& trap) : files(files), trap(trap) {}

    /// Empty also where the file cannot be read.
    std::string ReadIniValue(std::string_view file, std::string_view section, std::string_view key,
                             std::size_t length = IniFiles::kIniValueLength) {
        std::string value;
        trap(__func__, [&] { value = files.Read(file, section, key, length); });
        return value;
    }
    void SetIniValue(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
        trap(__func__, [&] { files.Write(file, section, key, value); });
    }

    IniFiles& files; ///< for callers that see to a failure themselves

private:
    Trap& trap;
};

} // namespace ombrin
