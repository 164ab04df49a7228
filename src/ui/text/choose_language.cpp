#include "ui/text/choose_language.h"

namespace ombrin {

ChooseLanguage::ChooseLanguage(ModalStack& stack, Localisation& language, Trap& trap)
    : ChooseLanguage(stack, language, trap, std::make_index_sequence<kChoices>{}) {}

template <std::size_t... I>
ChooseLanguage::ChooseLanguage(ModalStack& stack, Localisation& language, Trap& trap, std::index_sequence<I...>)
    : Form(stack, "ChooseLanguage", "Choose Language"), Radio{OptionButton(*this, "Radio" + std::to_string(I + 1))...},
      language(language), trap(trap) {
    for (OptionButton& radio : Radio) radio.SetVisible(false);
    Load = [this] { Form_Load(); };
    CloseBox = [this] { CancelButton_Click(); };
    OKButton.Click = [this] { OKButton_Click(); };
    CancelButton.Click = [this] { CancelButton_Click(); };
}

void ChooseLanguage::Form_Load() {
    trap(
        __func__,
        [&] {
            const std::string current = language.CurrentLanguage();
            if (current.empty()) Radio[0].SetOn(true);
            for (int number = 1; number <= kChoices; ++number) {
                const std::string name = language.LanguageOnOffer(number);
                if (name.empty()) continue;
                OptionButton& radio = Radio[static_cast<std::size_t>(number - 1)];
                radio.SetCaption(name);
                radio.SetVisible(true);
                if (name == current) radio.SetOn(true);
            }
            language.TranslateForm(*this);
        },
        Name());
}

void ChooseLanguage::OKButton_Click() {
    trap(
        __func__,
        [&] {
            selectedLanguage.clear();
            for (const OptionButton& radio : Radio)
                if (radio.On()) selectedLanguage = radio.Caption();
            Hide();
        },
        Name());
}

void ChooseLanguage::CancelButton_Click() {
    selectedLanguage.clear();
    Hide();
}

} // namespace ombrin
