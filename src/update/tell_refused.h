// Telling the user, and the log, which file the client does not take, and why.
#pragma once

#include "ui/text/messages.h"
#include "update/refused_file.h"

namespace ombrin {

/// `what` says what follows of it. Waits for the button.
void TellRefused(Messages& messages, Log& log, const LanguageText& what, const RefusedFile& file);

} // namespace ombrin
