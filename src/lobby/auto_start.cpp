#include "lobby/auto_start.h"

namespace ombrin {

void AutoStart::CheckAutoStart() {
    desk.trap(__func__, [&] {
        const std::string& game = desk.session.m_CurrentLobby;
        usesDirectPlay = records.UsesDirectPlay(game);
        autoStartOn = usesDirectPlay || !records.GameFile(game).empty();
        desk.view.ConfigWarning.SetCaption(
            autoStartOn ? std::string() : desk.language.TranslateWord(text::kAutoStart.key, text::kAutoStart.english));
    });
}

} // namespace ombrin
