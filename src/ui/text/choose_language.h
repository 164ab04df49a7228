// The choice of a language, on the first start.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/localisation.h"

#include <array>

namespace ombrin {

class ChooseLanguage : public Form {
public:
    static constexpr int kChoices = 14;

    ChooseLanguage(ModalStack& stack, Localisation& language, Trap& trap);

    /// Empty after a cancel, or when nothing was on offer.
    const std::string& SelectedLanguage() const { return selectedLanguage; }

    std::array<OptionButton, kChoices> Radio;
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "Cancel"};

private:
    template <std::size_t... I>
    ChooseLanguage(ModalStack& stack, Localisation& language, Trap& trap, std::index_sequence<I...>);
    void Form_Load();
    void OKButton_Click();
    void CancelButton_Click();

    Localisation& language;
    Trap& trap;
    std::string selectedLanguage;
};

} // namespace ombrin
