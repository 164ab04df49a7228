#include "ui/configurable_buttons.h"

#include "foundation/text.h"

namespace ombrin {

void ConfigurableButtons::ConfigurableMenuOrButtonClicked(std::string_view section, std::string_view key) {
    trap(__func__, [&] {
        constexpr int kHighestFailure = 32;
        const std::string target = Target(section, key);
        if (opener.Open(target, appPath) <= kHighestFailure)
            boxes.Show(Join("Error jumping to:", target), "Warning", BoxButtons::Ok, BoxIcon::Exclamation);
    });
}

} // namespace ombrin
