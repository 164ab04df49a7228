// A file that the client does not take, and why.
#pragma once

#include "ui/text/language_keys.h"

#include <string>

namespace ombrin {

struct RefusedFile {
    std::string fileName; ///< as the server wrote it: not fit for showing yet
    LanguageText why;
};

} // namespace ombrin
