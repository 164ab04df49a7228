// The control models of one value: buttons, boxes to tick, labels, text boxes, bars.
#pragma once

#include "controls/control.h"
#include "controls/picture.h"

namespace ombrin {

class Captioned : public Control {
public:
    Captioned(Container& parent, ControlKind kind, std::string name, std::string caption)
        : Control(parent, kind, std::move(name)), caption(std::move(caption)) {}
    const std::string& Caption() const { return caption; }
    void SetCaption(std::string_view text) { Set(caption, std::string(text)); }

private:
    std::string caption;
};

class Label : public Captioned {
public:
    Label(Container& parent, std::string name, std::string caption = "")
        : Captioned(parent, ControlKind::Label, std::move(name), std::move(caption)) {}
};

/// The titled border around a group of controls.
class Frame : public Captioned {
public:
    Frame(Container& parent, std::string name, std::string caption)
        : Captioned(parent, ControlKind::Frame, std::move(name), std::move(caption)) {}
};

class Button : public Captioned {
public:
    Button(Container& parent, std::string name, std::string caption = "", ButtonPictures pictures = {})
        : Captioned(parent, ControlKind::Button, std::move(name), std::move(caption)), pictures(std::move(pictures)) {}
    std::function<void()> Click;

    /// A button without any shows its caption.
    const ButtonPictures& Pictures() const { return pictures; }
    void SetPicture(Picture ButtonPictures::*state, Picture picture) {
        if (pictures.*state == picture) return;
        pictures.*state = std::move(picture);
        Changed();
    }
    /// Flat instead of raised.
    bool Flat() const { return flat; }
    void SetFlat(bool on) { Set(flat, on); }

private:
    ButtonPictures pictures;
    bool flat = false;
};

class CheckBox : public Captioned {
public:
    CheckBox(Container& parent, std::string name, std::string caption)
        : Captioned(parent, ControlKind::CheckBox, std::move(name), std::move(caption)) {}
    bool On() const { return on; }
    /// Runs Click when the value has changed, as for a person.
    void SetOn(bool value) {
        if (on == value) return;
        Set(on, value);
        if (Click) Click();
    }
    std::function<void()> Click;

private:
    bool on = false;
};

/// Of the option buttons of one container at most one is on.
class OptionButton : public Captioned {
public:
    OptionButton(Container& parent, std::string name, std::string caption = "")
        : Captioned(parent, ControlKind::OptionButton, std::move(name), std::move(caption)) {}
    bool On() const { return on; }
    void SetOn(bool value);
    std::function<void()> Click;

private:
    bool on = false;
};

class Image : public Control {
public:
    Image(Container& parent, std::string name) : Control(parent, ControlKind::Image, std::move(name)) {}
    const ombrin::Picture& Picture() const { return picture; }
    void SetPicture(ombrin::Picture other) { Set(picture, std::move(other)); }

private:
    ombrin::Picture picture = ombrin::Picture::BuiltIn();
};

/// The place of an embedded browser; the host's browser service shows the pages there.
class WebBrowser : public Control {
public:
    WebBrowser(Container& parent, std::string name) : Control(parent, ControlKind::WebBrowser, std::move(name)) {}
};

/// A colour to look at.
class ColourSwatch : public Control {
public:
    ColourSwatch(Container& parent, std::string name) : Control(parent, ControlKind::ColourSwatch, std::move(name)) {}
    ombrin::Colour Colour() const { return colour; }
    void SetColour(ombrin::Colour value) { Set(colour, value); }

private:
    ombrin::Colour colour = 0;
};

/// How far something has come, from 0 to 100.
class ProgressBar : public Control {
public:
    ProgressBar(Container& parent, std::string name) : Control(parent, ControlKind::ProgressBar, std::move(name)) {}
    int Value() const { return value; }
    void SetValue(int percent) { Set(value, percent < 0 ? 0 : percent > 100 ? 100 : percent); }

private:
    int value = 0;
};

class StatusBar : public Control {
public:
    StatusBar(Container& parent, std::string name) : Control(parent, ControlKind::StatusBar, std::move(name)) {}
    const std::string& Text() const { return text; }
    void SetText(std::string_view value) { Set(text, std::string(value)); }

private:
    std::string text;
};

class TextBox : public Control {
public:
    struct Form {
        std::size_t maxLength = 0; ///< characters, 0 for no limit of its own
        bool password = false;     ///< shown as "*"
    };

    TextBox(Container& parent, std::string name, Form form)
        : TextBox(parent, ControlKind::TextBox, std::move(name), form) {}

    const std::string& Text() const { return text; }
    /// By the client: nothing is cut, and the selection goes to the start.
    void SetText(std::string_view value);
    /// By a person: replaces the whole text; what is over the length is cut.
    void Type(std::string_view value);
    /// One character at the selection, which it replaces; 8 takes one away.
    void TypeCharacter(char character);

    std::size_t MaxLength() const { return form.maxLength; }
    bool IsPassword() const { return form.password; }
    std::size_t SelStart() const { return selStart; }
    std::size_t SelLength() const { return selLength; }
    void Select(std::size_t start, std::size_t length);
    void SelectAll() { Select(0, text.size()); }

    /// Setting the key to 0 keeps it from the box.
    std::function<void(int& key)> KeyPress;

protected:
    TextBox(Container& parent, ControlKind kind, std::string name, Form form)
        : Control(parent, kind, std::move(name)), form(form) {}

private:
    /// No text box needs more than the wire carries in one message.
    static constexpr std::size_t kOwnLimit = 32'000;
    std::size_t Limit() const { return form.maxLength != 0 ? form.maxLength : kOwnLimit; }

    Form form;
    std::string text;
    std::size_t selStart = 0, selLength = 0;
};

/// A text box with a list of texts to choose from, or such a list alone, whose text is one of its entries.
class ComboBox : public TextBox {
public:
    enum class Style { FreeText, ListOnly };

    ComboBox(Container& parent, std::string name, Style style)
        : TextBox(parent, ControlKind::ComboBox, std::move(name), {}), style(style) {}

    bool TakesFreeText() const { return style == Style::FreeText; }
    const std::vector<std::string>& List() const { return list; }
    void SetList(std::vector<std::string> entries) { Set(list, std::move(entries)); }
    /// Takes the entry's text. False when there is none at this index, which counts from 0.
    bool Choose(std::size_t index);

private:
    Style style;
    std::vector<std::string> list;
};

} // namespace ombrin
