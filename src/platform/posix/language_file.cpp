#include "platform/posix/language_file.h"

#include "foundation/text.h"
#include "platform/posix/native_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace ombrin {

void PlaceLanguageFile(const std::string& shareFolder, const Places& places, PosixFiles& files) {
    constexpr std::string_view kName = "AVfLang.ini";
    const std::vector<std::string> names = files.NamesIn(places.WindowsDirectory());
    const auto isIt = [&](const std::string& name) { return EqualIgnoringCase(name, kName); }; // as the client finds it
    if (std::any_of(names.begin(), names.end(), isIt)) return;
    const std::string source = Join(shareFolder, "/windows/", kName);
    std::ifstream file(source, std::ios::binary);
    if (!file) return;
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    if (file.bad()) RaiseLastProblem(source);
    // Another client may have placed it, or its user's choice, meanwhile.
    files.Update(Join(places.WindowsDirectory(), "/", kName), Files::Readers::Everybody,
                 [&](const auto& old) { return old ? std::nullopt : std::optional(content); });
}

} // namespace ombrin
