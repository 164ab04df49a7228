#include "launch/directplay/registry_service.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "launch/game_paths.h"

namespace ombrin::directplay {

std::string RegistryService::Machine::Text(std::string_view key, std::string_view value) const {
    const auto held = registry.Read(key, value);
    const auto* text = held ? std::get_if<std::string>(&*held) : nullptr;
    return text != nullptr ? *text : std::string();
}

void RegistryService::Machine::AddProgram(ApplicationStart& start, const std::string& key,
                                          const ProgramValues& values) const {
    const std::string file = Text(key, values.file), path = Text(key, values.path);
    if (!file.empty()) start.program = path.empty() ? file : Join(path, SeparatorOf(path), file);
    start.commandLine = Text(key, "CommandLine");
    start.directory = Text(key, "CurrentDirectory");
    if (start.directory.empty()) start.directory = path;
}

std::size_t RegistryService::Position(int index, std::size_t count) {
    if (index < 1 || static_cast<std::size_t>(index) > count) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(index) - 1;
}

void RegistryService::CheckPresence() const {
    if (!present) throw RuntimeError(ErrorNumber::CannotCreateObject, "DirectPlay is not there on this machine");
}

} // namespace ombrin::directplay
