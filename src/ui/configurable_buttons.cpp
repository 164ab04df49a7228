#include "ui/configurable_buttons.h"

#include "foundation/text.h"

namespace ombrin {

void ConfigurableButtons::Attach(View& view) {
    int number = 0;
    for (Button* button : {&view.btnConfigurable1, &view.btnConfigurable2, &view.btnConfigurable3,
                           &view.btnConfigurable4, &view.btnConfigurable5}) {
        const std::string text = std::to_string(++number);
        button->Click = [this, text] {
            trap.log.TraceMessage(Join("Configurable button ", text, " pressed"));
            ConfigurableMenuOrButtonClicked("ConfigurableButtons", "Button" + text);
        };
    }
}

void ConfigurableButtons::ConfigurableMenuOrButtonClicked(std::string_view section, std::string_view key) {
    trap(__func__, [&] {
        constexpr int kHighestFailure = 32;
        const std::string target = Target(section, key);
        if (opener.Open(target, appPath) <= kHighestFailure)
            boxes.Show(Join("Error jumping to:", target), "Warning", BoxButtons::Ok, BoxIcon::Exclamation);
    });
}

} // namespace ombrin
