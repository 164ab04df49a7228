// Notices that are only written down.
#pragma once

#include "platform/notifier.h"
#include "platform/recording/event.h"

namespace ombrin::recording {

class RecordingNotifier : public Notifier {
public:
    explicit RecordingNotifier(Journal journal) : journal(std::move(journal)) {}
    void Notify(Notice what, std::string_view who, std::string_view text) override {
        journal({what == Notice::PrivateMessage ? "message notice" : "buddy notice",
                 {{"who", std::string(who)}, {"text", std::string(text)}}});
    }

private:
    Journal journal;
};

} // namespace ombrin::recording
