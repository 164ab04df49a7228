#include "platform/posix/posix_components.h"

#include "foundation/runtime_error.h"
#include "platform/posix/posix_files.h"

#include <cstdint>
#include <dlfcn.h>
#include <filesystem>
#include <memory>

namespace ombrin {

namespace {

std::string LastProblem() {
    const char* text = dlerror();
    return text == nullptr ? "the library cannot be loaded" : text;
}

} // namespace

bool PosixComponents::Register(const std::string& path, bool on) {
    // A path with a separator in it, so that no folder of libraries is searched.
    const std::string native = std::filesystem::absolute(PosixFiles(page).Native(path)).string();
    const auto freeIt = [](void* library) { dlclose(library); };
    const std::unique_ptr<void, decltype(freeIt)> library(dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL), freeIt);
    if (!library) throw RuntimeError(ErrorNumber::FileNotFound, LastProblem());
    void* const entry = dlsym(library.get(), on ? "DllRegisterServer" : "DllUnregisterServer");
    if (entry == nullptr) throw RuntimeError(ErrorNumber::InvalidProcedureCall, LastProblem());
    return reinterpret_cast<std::int32_t (*)()>(entry)() == 0;
}

} // namespace ombrin
