// How Qt's application begins: whose options are whose, and what happens where no window can be opened.
#pragma once

#include <qlogging.h>
#include <string>
#include <vector>

namespace ombrin::desktop {

/// The arguments without those that Qt's application takes (`-platform offscreen`), so that the program's own can be
/// read before Qt looks for a display.
std::vector<std::string> WithoutQtOptions(int count, char* const* words);

/// While Qt's application is made. Qt ends a program that finds no display by a signal; here it ends with a line that
/// says so, and status 1.
class NeedsDisplay {
public:
    explicit NeedsDisplay(const char* program);
    ~NeedsDisplay();
    NeedsDisplay(const NeedsDisplay&) = delete;
    NeedsDisplay& operator=(const NeedsDisplay&) = delete;

private:
    const QtMessageHandler usual;
};

} // namespace ombrin::desktop
