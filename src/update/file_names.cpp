#include "update/file_names.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

namespace {

std::size_t NameStart(std::string_view path) {
    const std::size_t separator = path.find_last_of("/\\");
    return separator == std::string_view::npos ? 0 : separator + 1;
}

} // namespace

bool IsPlainFileName(std::string_view name) {
    return !name.empty() && name.size() <= kLongestFileName && name != "." && name != ".." &&
           std::none_of(name.begin(), name.end(), [](char c) {
               return static_cast<unsigned char>(c) < 32 || c == 127 || c == '/' || c == '\\' || c == ':';
           });
}

std::string_view DirectoryOfPath(std::string_view path) { return path.substr(0, NameStart(path)); }
std::string_view NameOfPath(std::string_view path) { return path.substr(NameStart(path)); }

std::string TemporaryPath(std::string_view finalPath) {
    const std::size_t point = finalPath.rfind('.');
    // A dot in the directory is none of the name's: it would lead to another place.
    if (point == std::string_view::npos || point < NameStart(finalPath))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return Join(finalPath.substr(0, point), "7", finalPath.substr(point));
}

std::string FinalPath(std::string_view temporaryPath) {
    const std::size_t point = temporaryPath.rfind('.');
    if (point == std::string_view::npos || point == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return Join(temporaryPath.substr(0, point - 1), temporaryPath.substr(point));
}

bool RegistersItself(std::string_view path) {
    const std::string_view end = path.substr(path.size() < 3 ? 0 : path.size() - 3);
    return EqualIgnoringCase(end, "ocx") || EqualIgnoringCase(end, "dll");
}

} // namespace ombrin
