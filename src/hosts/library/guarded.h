// The edge between the client and a host's code: texts and failures.
#pragma once

#include "foundation/code_page.h"
#include "foundation/runtime_error.h"

#include <ombrin/machine.h>
#include <string>
#include <string_view>
#include <type_traits>

namespace ombrin::host {

/// Runs the body. A failure comes out as the host's Error; when the program is ending a wait inside comes back with
/// nothing done.
template <class Body>
auto Guarded(const Body& body) -> decltype(body()) {
    try {
        return body();
    } catch (const RuntimeError& error) {
        throw Error(error.Number(), error.what());
    } catch (const ProgramEnding&) {
        if constexpr (!std::is_void_v<decltype(body())>) return {};
    }
}

/// Raises 5 for what the page cannot hold.
inline std::string Held(const CodePage& page, std::string_view utf8) {
    const auto held = page.FromUtf8(utf8);
    if (!held) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return *held;
}

} // namespace ombrin::host
