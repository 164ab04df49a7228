#include "session/stored_properties.h"

#include <limits>

namespace ombrin {

namespace {

/// Of the same kind, and in the range of the property: the two styles have 16 bits.
bool Fits(std::string_view name, const StoredProperties::Value& held, const StoredProperties::Value& value) {
    if (value.index() != held.index()) return false;
    using Limits = std::numeric_limits<std::int16_t>;
    const auto* number = std::get_if<std::int32_t>(&value);
    const bool isStyle = name == "BackStyle" || name == "BorderStyle";
    return number == nullptr || !isStyle || (*number >= Limits::min() && *number <= Limits::max());
}

} // namespace

void StoredProperties::InitProperties(const std::string& ambientFont) {
    values = own;
    values.insert({
        {"BackColor", 0},
        {"ForeColor", 0},
        {"Enabled", false},
        {"Font", ambientFont},
        {"BackStyle", 0},
        {"BorderStyle", 0},
    });
}

void StoredProperties::ReadProperties(const Bag& bag) {
    for (auto& [name, value] : values)
        if (const auto found = bag.find(name); found != bag.end() && Fits(name, value, found->second))
            value = found->second;
}

void StoredProperties::WriteProperties(Bag& bag) const {
    for (const auto& [name, value] : values) bag.insert_or_assign(name, value);
}

const StoredProperties::Value* StoredProperties::Get(std::string_view name) const {
    const auto found = values.find(name);
    return found == values.end() ? nullptr : &found->second;
}

bool StoredProperties::Set(std::string_view name, Value value) {
    const auto found = values.find(name);
    if (found == values.end() || !Fits(name, found->second, value)) return false;
    found->second = std::move(value);
    Report(name);
    return true;
}

} // namespace ombrin
