// Telling a user of something while he looks elsewhere.
#pragma once

#include <cstdint>
#include <string_view>

namespace ombrin {

enum class Notice : std::uint8_t {
    PrivateMessage, ///< from `who`: `text`
    BuddyOnLine,    ///< `who` has entered the lobby `text`
};

class Notifier {
public:
    virtual ~Notifier() = default;
    /// Returns at once. The host keeps quiet while its window is in front.
    virtual void Notify(Notice what, std::string_view who, std::string_view text) = 0;
};

/// For hosts without anybody to tell.
class NoNotifier : public Notifier {
public:
    void Notify(Notice, std::string_view, std::string_view) override {}
};

} // namespace ombrin
