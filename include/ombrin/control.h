// What both embedded controls have in common, and the objects that a host can create.
#pragma once

#include <ombrin/controls.h>
#include <ombrin/export.h>
#include <ombrin/machine.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace ombrin::host {

/// An object of one of the public classes. The library may be unloaded when none is left.
class OMBRIN_API Object {
public:
    virtual ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual std::string_view ClassName() const = 0;

protected:
    Object();
};

/// Declared for a container, and never raised. Shift is a sum: 1 the Shift key, 2 Ctrl, 4 Alt.
struct ControlEvents {
    using Keys = std::function<void(std::int16_t& KeyCode, std::int16_t Shift)>;
    using Mouse = std::function<void(std::int16_t Button, std::int16_t Shift, float x, float y)>;
    std::function<void()> Click, DblClick;
    Keys KeyDown;
    std::function<void(std::int16_t& KeyAscii)> KeyPress;
    Keys KeyUp;
    Mouse MouseDown, MouseMove, MouseUp;
};

class OMBRIN_API Control : public Object {
public:
    using Value = std::variant<std::int32_t, bool, std::string>;
    using Bag = std::map<std::string, Value, std::less<>>; ///< stored properties by name

    /// The controls that it shows.
    virtual Controls& View() = 0;

    // Stored for the container, any value as it is; they change nothing that the client does. A colour has red in its
    // lowest byte, then green and blue; a style is 0 in a new control. A font's name raises 5 when the client's code
    // page cannot hold it, as any text does (Error).
    std::int32_t BackColor() const;
    void SetBackColor(std::int32_t colour);
    std::int32_t ForeColor() const;
    void SetForeColor(std::int32_t colour);
    bool Enabled() const;
    void SetEnabled(bool on);
    std::string Font() const;
    void SetFont(const std::string& name);
    std::int16_t BackStyle() const;
    void SetBackStyle(std::int16_t style);
    std::int16_t BorderStyle() const;
    void SetBorderStyle(std::int16_t style);
    void Refresh() {}

    std::function<void(std::string_view name)> PropertyChanged; ///< by one of the setters
    ControlEvents Events;

    void InitProperties(const std::string& ambientFont); ///< as in a new control, whose font is its container's
    virtual void ReadProperties(const Bag& bag) = 0;     ///< what is missing or unfit stays as it is
    void WriteProperties(Bag& bag) const;

protected:
    struct OMBRIN_INSIDE Stored; ///< where the properties are kept
    virtual Stored& Properties() const = 0;
    void Set(std::string_view name, Value value);
};

} // namespace ombrin::host
