// What the server of a preview says: something for every list and chat.
#pragma once

#include "foundation/code_page.h"

#include <string>
#include <vector>

namespace ombrin::skin {

/// Names and lines that the code page cannot hold are left out.
class SampleSentences {
public:
    explicit SampleSentences(const CodePage& page) : page(page) {}

    std::string Lobby() const; ///< to the one who comes in
    std::string Room() const;  ///< to the one who looks at the first room

private:
    std::string Held(const char* utf8) const;
    std::vector<std::string> Names() const;

    const CodePage& page;
};

} // namespace ombrin::skin
