// Web banners: a list from the server, shown one after the other.
#pragma once

#include "lobby/desk.h"
#include "platform/desktop.h"
#include "platform/registry.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ombrin {

class Banners {
public:
    /// Entries of a list at most, as each of them is kept in the settings; what is above is left out.
    static constexpr std::int16_t kMostEntries = 100;

    Banners(Desk desk, Browser& browser, Registry& registry);

    /// The list: `<count>:` and an entry `<time>;<length>;<address>;` each; the last one is kept and never shown.
    void SetupBannerAds(std::string_view Buffer);
    void BannerTimer_Timer();

    /// For the time of a game. Nothing where no banner is shown.
    void Suspend();
    void Resume();
    /// When the lobby is left.
    void Stop();
    /// Gives the system's sound for page navigation back.
    void RestoreNavigateSound();
    /// What a new session begins with: nothing is shown, and nothing is silenced.
    void ForgetMarks();

private:
    void Store(std::int16_t entries, std::string_view buffer);
    void SilenceNavigateSound();
    void ShowNext();
    void Navigate(const std::string& address);
    void Wait(std::int32_t seconds);
    void SetInterval(std::int32_t seconds);
    std::string Setting(std::string_view key);
    void Save(std::string_view key, std::string_view value);

    Desk desk;
    Browser& browser;
    Registry& registry;
    std::int32_t m_lBannerSecondsLeft = 0; ///< to run after the timer's present interval
    bool m_bNavigateSoundOff = false;
    std::string m_sNavigateSound;
};

} // namespace ombrin
