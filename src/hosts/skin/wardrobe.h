// What a person does with skins: look at what is there, put one on, take it off. For the command line and the window.
#pragma once

#include "foundation/places.h"
#include "foundation/settings.h"
#include "hosts/skin/shelf.h"
#include "platform/posix/posix_files.h"

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

    /// The client's places below `home`, or where it has them by itself; made where they are missing. Raises what
    /// HomeRoot, CodePageOfStore and PreparePlaces raise.
    explicit Wardrobe(const std::optional<std::string>& home);
    Wardrobe(const Wardrobe&) = delete;
    Wardrobe& operator=(const Wardrobe&) = delete;

    /// By name.
    std::vector<Row> Rows();
    /// What a client shows from its next start on. Raises std::runtime_error, and then the look is as it was.
    Skin Use(const std::string& name);
    /// The name of what was in use; empty where it was the built-in look.
    std::string Remove();

    const Shelf& Skins() const { return shelf; }
    const Places& Home() const { return places; }
    const CodePage& Page() const { return page; }

private:
    std::string root;
    const CodePage& page;
    PosixFiles files{page};
    Places places;
    Settings settings;
    Shelf shelf;
};

} // namespace ombrin::skin
