// Components that are shared libraries of this machine.
#pragma once

#include "foundation/code_page.h"
#include "platform/components.h"

namespace ombrin {

/// A component is loaded for the call and freed again. Its code runs in this process: it is one of the client's own
/// files.
class PosixComponents : public Components {
public:
    explicit PosixComponents(const CodePage& page) : page(page) {}
    bool Register(const std::string& path, bool on) override;

private:
    const CodePage& page;
};

} // namespace ombrin
