// Where the stored properties of a control of the library are kept.
#pragma once

#include "foundation/code_page.h"
#include "session/stored_properties.h"

#include <atomic>
#include <ombrin/control.h>

namespace ombrin::host {

/// How many objects, factories and locks there are: the library may be unloaded at none.
extern std::atomic<int> g_inUse;

struct Control::Stored {
    template <class Core>
    Stored(Core& control, const CodePage& page)
        : values(control.Properties), page(page),
          init([&control](const std::string& font) { control.UserControl_InitProperties(font); }),
          write([&control](StoredProperties::Bag& bag) { control.UserControl_WriteProperties(bag); }) {}

    StoredProperties& values;
    const CodePage& page;
    const std::function<void(const std::string& ambientFont)> init;
    const std::function<void(StoredProperties::Bag& bag)> write;

    /// With its texts in the client's code page. Raises 5.
    StoredProperties::Bag Taken(const Bag& bag) const;
};

} // namespace ombrin::host
