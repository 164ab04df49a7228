#include "ui/banners.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "platform/user_registry.h"
#include "session/wire/codec.h"
#include "ui/web_address.h"

#include <algorithm>
#include <exception>

namespace ombrin {

namespace {

constexpr std::string_view kSection = "Banner Ads";
constexpr std::string_view kNavigating = R"(AppEvents\Schemes\Apps\Explorer\Navigating\.current)";
constexpr std::string_view kBlankPage = "about:blank";
constexpr std::int32_t kLongestInterval = 60; ///< seconds that the timer can count at once

/// Whatever it leads to; it is looked at before it is opened.
bool CanBeKept(std::string_view address) {
    return address.size() <= kLongestWebAddress &&
           std::none_of(address.begin(), address.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
}

std::string Banner(std::int16_t number) { return Join("Banner", std::to_string(number)); }

/// Cut by its length, as an address may hold anything; the character behind it is skipped.
void StoreEntry(SettingsDraft& draft, const std::string& banner, std::string_view& buffer) {
    const std::int16_t seconds = ToInteger(GetCommand(buffer, kFieldEnd));
    draft.Put(kSection, banner + "Time", std::to_string(seconds));
    const std::int16_t length = ToInteger(GetCommand(buffer, kFieldEnd));
    if (length < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const auto size = static_cast<std::size_t>(length);
    const std::string address = DecodeData(buffer.substr(0, size));
    buffer.remove_prefix(std::min(buffer.size(), size + 1));
    draft.Put(kSection, banner, CanBeKept(address) ? address : "");
}

} // namespace

Banners::Banners(Desk desk, Browser& browser, Registry& registry) : desk(desk), browser(browser), registry(registry) {
    desk.view.BannerTimer.Tick = [this] { BannerTimer_Timer(); };
}

std::string Banners::Setting(std::string_view key) { return desk.settings.GetSetting(kSection, key); }
void Banners::Save(std::string_view key, std::string_view value) { desk.settings.SaveSetting(kSection, key, value); }

void Banners::SetupBannerAds(std::string_view Buffer) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("setting up banner ads");
        const std::int16_t count = ToInteger(GetCommand(Buffer, kCodeEnd));
        const std::int16_t entries = std::min(count, kMostEntries);
        if (entries < count)
            desk.TraceMessage(Join(std::to_string(count), " banners are too many; the first are taken"));
        const std::int32_t shown = entries - 1;
        if (shown > 0) Save("NumberOfBanners", std::to_string(shown));
        if (desk.view.BannerAd.Visible() || shown < 1) return;
        desk.session.m_bBannersEnabled = true;
        desk.view.BannerAd.SetVisible(true);
        SilenceNavigateSound();
        Store(entries, Buffer);
        Navigate(Setting(Banner(1)));
        if (shown < 2) return;
        desk.view.BannerTimer.SetOn(true);
        Wait(ToInteger(Setting(Banner(1) + "Time")));
    });
}

/// The whole list in one step, as each is written to the disk. What stands before an entry that cannot be read is kept.
void Banners::Store(std::int16_t entries, std::string_view buffer) {
    std::exception_ptr failure;
    desk.settings.Change([&](SettingsDraft& draft) {
        draft.Put(kSection, "CurrentBanner", "1");
        try {
            for (std::int16_t number = 1; number <= entries; ++number) StoreEntry(draft, Banner(number), buffer);
        } catch (const RuntimeError&) {
            failure = std::current_exception();
        }
    });
    if (failure) std::rethrow_exception(failure);
}

void Banners::SilenceNavigateSound() {
    m_bNavigateSoundOff = true;
    m_sNavigateSound = QueryValue(registry, kNavigating, "");
    SetKeyValue(registry, kNavigating, "", std::string());
}

void Banners::RestoreNavigateSound() {
    if (m_bNavigateSoundOff) SetKeyValue(registry, kNavigating, "", m_sNavigateSound);
}

void Banners::BannerTimer_Timer() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("banner timer called");
        if (m_lBannerSecondsLeft == 0)
            ShowNext();
        else
            Wait(m_lBannerSecondsLeft);
    });
}

void Banners::ShowNext() {
    const std::int16_t number = ToInteger(Setting("CurrentBanner"));
    const std::int16_t last = ToInteger(Setting("NumberOfBanners"));
    const std::string address = Setting(Banner(number)), seconds = Setting(Banner(number) + "Time");
    Navigate(address);
    Save("CurrentBanner", number >= last ? "1" : std::to_string(number + 1));
    Wait(ToInteger(seconds));
}

/// A page of the web, and no other: neither files of this machine nor scripts.
void Banners::Navigate(const std::string& address) {
    if (IsWebAddress(address))
        browser.Navigate(address);
    else
        desk.TraceMessage("a banner is no web address and is not shown");
}

void Banners::Wait(std::int32_t seconds) {
    SetInterval(std::min(seconds, kLongestInterval));
    m_lBannerSecondsLeft = std::max(seconds - kLongestInterval, 0);
}

void Banners::SetInterval(std::int32_t seconds) {
    if (seconds < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    desk.view.BannerTimer.SetInterval(Milliseconds(seconds * 1000));
}

void Banners::Suspend() {
    if (!desk.session.m_bBannersEnabled) return;
    browser.Navigate(kBlankPage);
    desk.view.BannerTimer.SetOn(false);
}

void Banners::Resume() {
    if (!desk.session.m_bBannersEnabled) return;
    desk.view.BannerTimer.SetOn(true);
    m_lBannerSecondsLeft = 0;
    BannerTimer_Timer();
}

void Banners::Stop() {
    RestoreNavigateSound();
    m_bNavigateSoundOff = false;
    if (desk.session.m_bBannersEnabled) desk.view.BannerTimer.SetOn(false);
}

void Banners::ForgetMarks() {
    desk.session.m_bBannersEnabled = false;
    m_bNavigateSoundOff = false;
}

} // namespace ombrin
