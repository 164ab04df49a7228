// The skin: pictures and one colour for the view, named by settings and put on once.
#pragma once

#include "controls/main_view.h"
#include "foundation/settings.h"
#include "foundation/trap.h"
#include "platform/pictures.h"

#include <string>

namespace ombrin {

class Skins {
public:
    struct Sources {
        Settings& settings;
        IniFiles& iniFiles;
        Pictures& pictures;
        std::string appPath; ///< every value is put directly behind it
    };

    Skins(View& view, Sources sources, Trap& trap) : view(view), sources(std::move(sources)), trap(trap) {}

    /// A slot without a value keeps what the control was built with. A value that cannot be used ends it there, for the
    /// log only.
    void LoadSkins();
    /// Of the keys that dress the button; empty for one that no skin dresses.
    static std::string_view PrefixOf(const Button& button);

private:
    std::string ValueOf(std::string_view key);
    Picture Load(const std::string& value);
    void DressButton(std::string_view prefix, Button& button);
    void ColourLabels(Colour colour);

    View& view;
    Sources sources;
    Trap& trap;
};

} // namespace ombrin
