#include "hosts/library/registration.h"

#include "foundation/text.h"
#include "session/public_surface.h"

namespace ombrin::host {

namespace {

constexpr std::string_view kRoot = "HKEY_CLASSES_ROOT\\";

std::string ClassKey(const PublicClass& c) { return Join(kRoot, "CLSID\\", c.identifier); }
std::string ProgramKey(const PublicClass& c) { return Join(kRoot, kLibraryName, ".", c.name); }
std::string InterfaceKey(std::string_view identifier) { return Join(kRoot, "Interface\\", identifier); }
std::string TypeLibraryKey() { return Join(kRoot, "TypeLib\\", kLibraryIdentifier); }

void EnterInterface(HiveRegistry& registry, std::string_view name, std::string_view identifier) {
    if (identifier.empty()) return;
    registry.Write(InterfaceKey(identifier), "", std::string(name));
    registry.Write(InterfaceKey(identifier) + "\\TypeLib", "", std::string(kLibraryIdentifier));
}

} // namespace

void EnterClasses(HiveRegistry& registry, const std::string& file) {
    const std::string version = TypeLibraryKey() + "\\" + std::string(kLibraryVersion);
    registry.Write(version, "", std::string(kLibraryName));
    registry.Write(version + "\\0\\win32", "", file);
    for (const PublicClass& c : kPublicClasses) {
        const std::string key = ClassKey(c), program = Join(kLibraryName, ".", c.name);
        registry.Write(key, "", program);
        registry.Write(key + "\\InprocServer32", "", file);
        registry.Write(key + "\\InprocServer32", "ThreadingModel", "Apartment");
        registry.Write(key + "\\ProgID", "", program);
        registry.Write(key + "\\TypeLib", "", std::string(kLibraryIdentifier));
        registry.Write(ProgramKey(c) + "\\Clsid", "", std::string(c.identifier));
        EnterInterface(registry, c.interfaceName, c.interfaceIdentifier);
        EnterInterface(registry, c.eventsName, c.eventsIdentifier);
    }
}

void TakeClassesOut(HiveRegistry& registry) {
    registry.Remove(TypeLibraryKey());
    for (const PublicClass& c : kPublicClasses) {
        registry.Remove(ClassKey(c));
        registry.Remove(ProgramKey(c));
        registry.Remove(InterfaceKey(c.interfaceIdentifier));
        if (!c.eventsIdentifier.empty()) registry.Remove(InterfaceKey(c.eventsIdentifier));
    }
}

} // namespace ombrin::host
