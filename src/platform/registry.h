// The registry: named values below keys such as "HKEY_CURRENT_USER\Software\Maker". Keys and names are compared
// without regard to case; the empty name is a key's default value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ombrin {

/// A text (type 1) or a 32-bit number (type 4).
using RegistryValue = std::variant<std::string, std::int32_t>;

class Registry {
public:
    virtual ~Registry() = default;
    /// Nothing where the key or the value is missing, or is no text or number.
    virtual std::optional<RegistryValue> Read(std::string_view key, std::string_view name) = 0;
    /// The value is there, and is no text or number.
    virtual bool HasOther(std::string_view, std::string_view) { return false; }
    /// Makes the key where it is missing. Raises 5 for what cannot be held, and what a failing disk raises.
    virtual void Write(std::string_view key, std::string_view name, const RegistryValue& value) = 0;
    virtual bool Has(std::string_view key) = 0;
    /// Names of the keys right below, in their order.
    virtual std::vector<std::string> Subkeys(std::string_view key) = 0;
};

} // namespace ombrin
