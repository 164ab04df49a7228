// DirectPlay as a layer of the client's own: what is registered is read from the registry, and an application is
// started with the description of its session. It moves no data of a game; that is the application's.
#pragma once

#include "launch/directplay/service.h"
#include "platform/applications.h"
#include "platform/registry.h"

namespace ombrin::directplay {

/// Applications and service providers of DirectPlay 7, a key each: its name is the display name, its value `Guid` the
/// GUID.
inline constexpr std::string_view kApplications = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\Applications";
inline constexpr std::string_view kProviders = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\Service Providers";

class RegistryService : public Service {
public:
    RegistryService(Registry& registry, Applications& applications) : machine{registry, applications} {}

    std::unique_ptr<DirectX7> CreateDirectX7() override;
    std::unique_ptr<DirectX8> CreateDirectX8() override;

    bool present = true; ///< false: a machine without the service

    /// Under which names an application has registered its program.
    struct ProgramValues {
        std::string_view file, path;
    };

    struct Machine {
        Registry& registry;
        Applications& applications;

        /// "" where the value is missing or no text.
        std::string Text(std::string_view key, std::string_view value) const;
        void AddProgram(ApplicationStart& start, const std::string& key, const ProgramValues& values) const;
    };

    /// Of an entry in a list; the service counts from 1. Raises 9.
    static std::size_t Position(int index, std::size_t count);

private:
    void CheckPresence() const;

    Machine machine;
};

} // namespace ombrin::directplay
