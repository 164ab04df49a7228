// What a person does with skins: look at what is there, put one on, take it off. For the command line and the window.
#pragma once

#include "foundation/places.h"
#include "foundation/settings.h"
#include "hosts/skin/shelf.h"
#include "platform/posix/home.h"

#include <optional>

namespace ombrin::skin {

class Wardrobe {
public:
    /// A row of the list. A skin that cannot be used says why.
    struct Row {
        Skin skin;
        std::string fault;
        bool inUse = false;
    };

    /// `asked` as ClientHome takes it. Raises what that raises.
    explicit Wardrobe(const std::optional<std::string>& asked);
    Wardrobe(const Wardrobe&) = delete;
    Wardrobe& operator=(const Wardrobe&) = delete;

    /// By name.
    std::vector<Row> Rows();
    /// What a client shows from its next start on. Raises std::runtime_error, and then the look is as it was.
    Skin Use(const std::string& name);
    /// The name of what was in use; empty where it was the built-in look.
    std::string Remove();

    const Shelf& Skins() const { return shelf; }
    const Places& Home() const { return home.places; }
    const CodePage& Page() const { return home.page; }

private:
    ClientHome home;
    Settings settings;
    Shelf shelf;
};

} // namespace ombrin::skin
