#include "foundation/text.h"
#include "hosts/library/control_parts.h"
#include "hosts/library/guarded.h"
#include "hosts/library/registration.h"
#include "platform/posix/home.h"
#include "session/public_surface.h"

#include <dlfcn.h>
#include <ombrin/factory.h>

namespace ombrin::host {

namespace {

class Factory final : public ClassFactory {
public:
    explicit Factory(const PublicClass& made) : made(made) { ++g_inUse; }

    std::int32_t QueryInterface(const Guid& interface, void** object) override {
        if (object == nullptr) return kInvalidPointer;
        *object = nullptr;
        if (interface != kUnknown && interface != kClassFactory) return kNoInterface;
        AddRef();
        *object = static_cast<ClassFactory*>(this);
        return kOk;
    }
    std::uint32_t AddRef() override { return ++references; }
    std::uint32_t Release() override {
        const std::uint32_t left = --references;
        if (left == 0) delete this;
        return left;
    }
    std::int32_t CreateInstance(Machine& machine, std::unique_ptr<Object>& object) override {
        try {
            object = Create(machine, made.identifier);
        } catch (const Error&) {
            return kClassNotAvailable;
        }
        return kOk;
    }
    std::int32_t LockServer(bool on) override {
        g_inUse += on ? 1 : -1;
        return kOk;
    }

private:
    ~Factory() { --g_inUse; }

    const PublicClass& made;
    std::uint32_t references = 1;
};

std::string OwnFile() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&DllRegisterServer), &info) == 0 || info.dli_fname == nullptr)
        throw RuntimeError(ErrorNumber::FileNotFound);
    return info.dli_fname;
}

/// What a failure means to the caller is one number; nobody reads its text.
template <class Body>
std::int32_t InRegistry(const Body& body) {
    try {
        ClientHome home(std::nullopt);
        HiveRegistry registry(home.files, home.places.RegistryFile());
        body(registry, home.page);
    } catch (const std::exception&) {
        return kNotRegistered;
    }
    return kOk;
}

} // namespace

} // namespace ombrin::host

using namespace ombrin::host;

std::int32_t DllRegisterServer() {
    return InRegistry([](ombrin::HiveRegistry& registry, const ombrin::CodePage& page) {
        EnterClasses(registry, Held(page, OwnFile()));
    });
}

std::int32_t DllUnregisterServer() {
    return InRegistry([](ombrin::HiveRegistry& registry, const ombrin::CodePage&) { TakeClassesOut(registry); });
}

std::int32_t DllGetClassObject(const Guid* classIdentifier, const Guid* interface, void** factory) {
    if (classIdentifier == nullptr || interface == nullptr || factory == nullptr) return kInvalidPointer;
    *factory = nullptr;
    for (const ombrin::PublicClass& c : ombrin::kPublicClasses) {
        Guid own;
        if (!ToGuid(c.identifier, own) || own != *classIdentifier) continue;
        auto* const made = new Factory(c);
        const std::int32_t result = made->QueryInterface(*interface, factory);
        made->Release();
        return result;
    }
    return kClassNotAvailable;
}

std::int32_t DllCanUnloadNow() { return g_inUse == 0 ? kOk : kFalse; }
