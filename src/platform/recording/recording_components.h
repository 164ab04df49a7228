// Registrations that are only written down.
#pragma once

#include "platform/components.h"
#include "platform/recording/event.h"

namespace ombrin::recording {

class RecordingComponents : public Components {
public:
    explicit RecordingComponents(Journal journal) : journal(std::move(journal)) {}
    bool Register(const std::string& path, bool on) override {
        journal({"register", {{"path", path}, {"register", on}}});
        return works;
    }

    bool works = true; ///< what every registration answers

private:
    Journal journal;
};

} // namespace ombrin::recording
