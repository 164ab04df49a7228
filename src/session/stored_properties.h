// The properties that a container stores for a control. They change nothing that the client does.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace ombrin {

class StoredProperties {
public:
    using Value = std::variant<std::int32_t, bool, std::string>; ///< colours and styles, a switch, the name of a font
    using Bag = std::map<std::string, Value, std::less<>>;

    /// Colours, styles, `Enabled` and `Font` are every control's; `own` are those of this one, as they are at first.
    explicit StoredProperties(Bag own) : own(std::move(own)) { InitProperties(""); }

    /// Hears the name of each property that a setter has changed.
    std::function<void(std::string_view name)> PropertyChanged;
    void Report(std::string_view name) const {
        if (PropertyChanged) PropertyChanged(name);
    }

    /// The values of a control that was just made, in the container's font.
    void InitProperties(const std::string& ambientFont);
    /// What the bag does not hold, or holds in another kind or beyond its range, stays as it is.
    void ReadProperties(const Bag& bag);
    void WriteProperties(Bag& bag) const;

    /// nullptr for a property that does not exist.
    const Value* Get(std::string_view name) const;
    /// False for one that does not exist, and for a value of another kind or beyond its range.
    bool Set(std::string_view name, Value value);

private:
    Bag own, values;
};

} // namespace ombrin
