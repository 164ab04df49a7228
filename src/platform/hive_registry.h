// A registry of the client's own, in one INI file: a section a key, "sz:" or "dword:" before each value.
#pragma once

#include "foundation/ini_files.h"
#include "platform/registry.h"

namespace ombrin {

class HiveRegistry : public Registry {
public:
    HiveRegistry(Files& files, std::string path) : file(files, std::move(path), Files::Readers::UserOnly) {}

    std::optional<RegistryValue> Read(std::string_view key, std::string_view name) override;
    void Write(std::string_view key, std::string_view name, const RegistryValue& value) override;
    bool Has(std::string_view key) override;
    std::vector<std::string> Subkeys(std::string_view key) override;
    /// With all keys below it; one that is not there is none the worse for it. Raises what a failing disk raises.
    void Remove(std::string_view key);

private:
    IniFile file;
};

} // namespace ombrin
