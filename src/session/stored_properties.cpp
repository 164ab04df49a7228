#include "session/stored_properties.h"

namespace ombrin {

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
        if (const auto found = bag.find(name); found != bag.end() && found->second.index() == value.index())
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
    if (found == values.end() || found->second.index() != value.index()) return false;
    found->second = std::move(value);
    Report(name);
    return true;
}

} // namespace ombrin
