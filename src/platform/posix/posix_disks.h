// Fixed disks here are the mounted local file systems.
#pragma once

#include "foundation/code_page.h"
#include "platform/disks.h"
#include "platform/posix/wine_prefix.h"

namespace ombrin {

/// Pseudo file systems and network mounts are no disks, and a walk does not go into them: a directory of another file
/// system, or a link, cannot be entered. Names that the code page cannot hold are left out. Hidden is what begins with
/// a ".".
class PosixDisks : public Disks {
public:
    /// Both outlive it. A prefix that is named is the first of the disks, by its drive C.
    PosixDisks(const CodePage& page, const WinePrefix& prefix) : page(page), prefix(prefix) {}
    std::vector<std::string> FixedDisks() override;
    std::vector<Entry> List(const std::string& directory) override;

private:
    const CodePage& page;
    const WinePrefix& prefix;
};

} // namespace ombrin
