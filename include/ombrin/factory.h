// The classes by their identifiers, and the four entry points of a component.
#pragma once

#include <ombrin/control.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::host {

struct ClassDescription {
    std::string name, identifier;
    std::string interfaceName, interfaceIdentifier;
    std::string eventsName, eventsIdentifier; ///< empty for a class without events
};

OMBRIN_API std::vector<ClassDescription> Classes();
OMBRIN_API std::string LibraryIdentifier();

/// By its identifier, with or without its braces, or by its name. A `clsDirectPlay` belongs to the `GameLobby` that was
/// made last on the machine. Raises 429 for another class, and where there is no such control.
OMBRIN_API std::unique_ptr<Object> Create(Machine& machine, std::string_view classIdentifier);

/// As the component's entry points take it.
struct Guid {
    std::uint32_t a = 0;
    std::uint16_t b = 0, c = 0;
    std::uint8_t d[8]{};
    bool operator==(const Guid&) const = default;
};
inline constexpr Guid kUnknown{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr Guid kClassFactory{0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// Nothing for a text that is no identifier.
OMBRIN_API bool ToGuid(std::string_view text, Guid& guid);

/// Makes objects of one class. It lives until Release has been called as often as it was handed out.
class ClassFactory {
public:
    virtual std::int32_t QueryInterface(const Guid& interface, void** object) = 0;
    virtual std::uint32_t AddRef() = 0;
    virtual std::uint32_t Release() = 0;
    virtual std::int32_t CreateInstance(Machine& machine, std::unique_ptr<Object>& object) = 0;
    virtual std::int32_t LockServer(bool on) = 0;

protected:
    ~ClassFactory() = default;
};

// What the entry points answer.
inline constexpr std::int32_t kOk = 0, kFalse = 1;
inline constexpr std::int32_t kNoInterface = static_cast<std::int32_t>(0x80004002);
inline constexpr std::int32_t kInvalidPointer = static_cast<std::int32_t>(0x80004003);
inline constexpr std::int32_t kClassNotAvailable = static_cast<std::int32_t>(0x80040111);
inline constexpr std::int32_t kNotRegistered = static_cast<std::int32_t>(0x80040201);

} // namespace ombrin::host

extern "C" {

/// Enters the classes and their type library into the registry of the client that OMBRIN_HOME names, else of the
/// user's own. kNotRegistered where that fails.
OMBRIN_API std::int32_t DllRegisterServer();
/// Takes them out again; also where they are not there.
OMBRIN_API std::int32_t DllUnregisterServer();
/// Sets `factory` to an ombrin::host::ClassFactory, for its own interface or for kUnknown; it is the caller's, who
/// calls Release. Null with kClassNotAvailable and kNoInterface; kInvalidPointer for a null argument.
OMBRIN_API std::int32_t DllGetClassObject(const ombrin::host::Guid* classIdentifier,
                                          const ombrin::host::Guid* interface, void** factory);
/// kOk when no object, factory or lock is left, else kFalse.
OMBRIN_API std::int32_t DllCanUnloadNow();
}
