#include "hosts/library/control_parts.h"
#include "hosts/library/guarded.h"

namespace ombrin::host {

std::atomic<int> g_inUse = 0;

Object::Object() { ++g_inUse; }

Object::~Object() { --g_inUse; }

StoredProperties::Bag Control::Stored::Taken(const Bag& bag) const {
    StoredProperties::Bag taken;
    for (const auto& [name, value] : bag) {
        const auto* text = std::get_if<std::string>(&value);
        taken[name] = text == nullptr ? value : StoredProperties::Value(Held(page, *text));
    }
    return taken;
}

namespace {

template <class Kind>
Kind Got(const StoredProperties& values, std::string_view name) {
    return std::get<Kind>(*values.Get(name));
}

} // namespace

void Control::Set(std::string_view name, Value value) {
    Guarded([&] {
        const Stored& stored = Properties();
        if (auto* text = std::get_if<std::string>(&value)) value = Held(stored.page, *text);
        stored.values.PropertyChanged = PropertyChanged;
        stored.values.Set(name, std::move(value));
    });
}

std::int32_t Control::BackColor() const { return Got<std::int32_t>(Properties().values, "BackColor"); }
void Control::SetBackColor(std::int32_t colour) { Set("BackColor", colour); }
std::int32_t Control::ForeColor() const { return Got<std::int32_t>(Properties().values, "ForeColor"); }
void Control::SetForeColor(std::int32_t colour) { Set("ForeColor", colour); }
bool Control::Enabled() const { return Got<bool>(Properties().values, "Enabled"); }
void Control::SetEnabled(bool on) { Set("Enabled", on); }
std::string Control::Font() const { return Properties().page.ToUtf8(Got<std::string>(Properties().values, "Font")); }
void Control::SetFont(const std::string& name) { Set("Font", name); }

std::int16_t Control::BackStyle() const {
    return static_cast<std::int16_t>(Got<std::int32_t>(Properties().values, "BackStyle"));
}
void Control::SetBackStyle(std::int16_t style) { Set("BackStyle", std::int32_t{style}); }
std::int16_t Control::BorderStyle() const {
    return static_cast<std::int16_t>(Got<std::int32_t>(Properties().values, "BorderStyle"));
}
void Control::SetBorderStyle(std::int16_t style) { Set("BorderStyle", std::int32_t{style}); }

void Control::InitProperties(const std::string& ambientFont) {
    Guarded([&] { Properties().init(Held(Properties().page, ambientFont)); });
}

void Control::WriteProperties(Bag& bag) const {
    StoredProperties::Bag held;
    Properties().write(held);
    for (auto& [name, value] : held) {
        if (auto* text = std::get_if<std::string>(&value)) *text = Properties().page.ToUtf8(*text);
        bag.insert_or_assign(name, value);
    }
}

} // namespace ombrin::host
