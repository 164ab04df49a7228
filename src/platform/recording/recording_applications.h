// Applications that are only written down.
#pragma once

#include "platform/applications.h"
#include "platform/recording/event.h"

namespace ombrin::recording {

class RecordingApplications : public Applications {
public:
    explicit RecordingApplications(Journal journal) : journal(std::move(journal)) {}

    long Run(const ApplicationStart& start) override {
        Event event{"directplay", {{"operation", start.operation}}};
        for (const auto& [name, value] : start.session)
            std::visit([&, &name = name](const auto& held) { event.fields.emplace_back(name, held); }, value);
        journal(event);
        return ++lastHandle;
    }

private:
    Journal journal;
    long lastHandle = 0;
};

} // namespace ombrin::recording
