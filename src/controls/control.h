// The base of every control model: what a person sees of it, and who paints it. Models know no toolkit; the client's
// routines read and write them, hosts paint them and hand input in through UserInput.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

class Container;
class Control;

enum class ControlKind {
    Button,
    CheckBox,
    ColourSwatch,
    ComboBox,
    FlexGrid,
    Frame,
    Image,
    Label,
    ListBox,
    ListView,
    Menu,
    MenuEntry,
    OptionButton,
    ProgressBar,
    StatusBar,
    TextBox,
    Timer,
    WebBrowser,
};

/// A 32-bit colour value, low byte red.
using Colour = std::int32_t;

/// Where a control of the main view stands, in pixels.
struct Place {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Place&) const = default;
};

/// Hears once that a model has changed, until it says that it has looked (Control::Looked). It must not call back into
/// the client from here.
class ModelWatcher {
public:
    virtual ~ModelWatcher() = default;
    virtual void Dirty(Control& control) = 0;
};

class Control {
public:
    Control(Container& parent, ControlKind kind, std::string name);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name; }
    ControlKind Kind() const { return kind; }
    Container& Parent() const { return parent; }

    /// The control's own switches, whatever its form's are.
    bool Visible() const { return visible; }
    bool Enabled() const { return enabled; }
    void SetVisible(bool on) { Set(visible, on); }
    void SetEnabled(bool on) { Set(enabled, on); }

    /// Nothing where the control was never given one and shows its host's usual colour.
    std::optional<Colour> ForeColour() const { return foreColour; }
    void SetForeColour(Colour colour) { Set(foreColour, std::optional(colour)); }

    const Place& Where() const { return place; }
    void SetPlace(const Place& other) { Set(place, other); }

    /// Moves the focus here; a control that is hidden or disabled refuses it (false).
    bool SetFocus();
    bool HasFocus() const;
    std::function<void()> GotFocus;

    /// One watcher at a time; it outlives the model or takes itself away with nullptr.
    void Watch(ModelWatcher* other) {
        watcher = other;
        dirty = false;
    }
    void Looked() { dirty = false; }

protected:
    void Changed() {
        if (watcher == nullptr || dirty) return;
        dirty = true;
        watcher->Dirty(*this);
    }
    template <class Value>
    void Set(Value& field, Value value) {
        if (field == value) return;
        field = std::move(value);
        Changed();
    }

private:
    Container& parent;
    ControlKind kind;
    bool visible = true, enabled = true, dirty = false;
    std::string name;
    std::optional<Colour> foreColour;
    Place place;
    ModelWatcher* watcher = nullptr;
};

/// What holds controls: the main view or a form. It owns none of them; they are its members.
class Container {
public:
    explicit Container(std::string name) : name(std::move(name)) {}
    virtual ~Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    const std::string& Name() const { return name; }
    const std::vector<Control*>& Controls() const { return controls; }
    /// nullptr when it has no such control.
    Control* Find(std::string_view controlName) const;
    Control* Focus() const { return focus; }

private:
    friend class Control;
    std::string name;
    std::vector<Control*> controls; ///< in the order of their definition, which is the order of the Tab key
    Control* focus = nullptr;
};

} // namespace ombrin
