// A machine for one client, in memory: files, a network whose peer is played, a clock that is moved by hand.
#pragma once

#include "launch/directplay/registry_service.h"
#include "platform/hive_registry.h"
#include "platform/picture_files.h"
#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"
#include "platform/recording/memory_files.h"
#include "platform/recording/memory_local_files.h"
#include "platform/recording/recording_applications.h"
#include "platform/recording/recording_components.h"
#include "platform/recording/recording_desktop.h"
#include "platform/recording/recording_disks.h"
#include "platform/recording/recording_integrity.h"
#include "platform/recording/recording_network.h"
#include "platform/recording/recording_notifier.h"
#include "platform/recording/recording_pings.h"
#include "platform/recording/recording_processes.h"
#include "session/game_lobby.h"

#include <string>
#include <vector>

namespace ombrin::test {

/// Known by their first bytes, unless a window has its own way to them.
struct WorldPictures : Pictures {
    explicit WorldPictures(const LocalFiles& files) : known(files) {}
    std::shared_ptr<const LoadedPicture> LoadPicture(const std::string& path) override {
        return shown != nullptr ? shown->LoadPicture(path) : known.LoadPicture(path);
    }
    PictureFiles known;
    Pictures* shown = nullptr;
};

struct RecordedWorld {
    std::vector<recording::Event> events;
    recording::Journal journal = [this](const recording::Event& event) { events.push_back(event); };
    VirtualClock clock;
    EventLoop loop{clock};
    recording::MemoryFiles files;
    recording::MemoryLocalFiles localFiles{files};
    recording::PlayedNetwork network;
    recording::RecordingSound sound{journal};
    recording::RecordingClipboard clipboard{journal};
    recording::RecordingPings pings{journal};
    recording::RecordingNotifier notifier{journal};
    recording::RecordingProcesses processes{journal};
    recording::RecordingComponents components{journal};
    recording::RecordingIntegrity integrity;
    recording::RecordingOpener opener{journal};
    recording::RecordingBrowser browser{journal};
    WorldPictures pictures{localFiles};
    recording::FixedMeasure measure;
    Places places{"/home"};
    HiveRegistry registry{files, places.RegistryFile()};
    recording::RecordingApplications applications{journal};
    directplay::RegistryService directPlay{registry, applications};
    recording::RecordingDisks disks;

    /// `otherNetwork` and `otherFiles` take the place of the played network and of the files in memory.
    Platform ForClient(Waiter& waiter, Network* otherNetwork = nullptr, LocalFiles* otherFiles = nullptr) {
        return {otherNetwork != nullptr ? *otherNetwork : static_cast<Network&>(network),
                loop,
                clock,
                files,
                otherFiles != nullptr ? *otherFiles : static_cast<LocalFiles&>(localFiles),
                sound,
                clipboard,
                pings,
                notifier,
                browser,
                pictures,
                processes,
                components,
                integrity,
                registry,
                directPlay,
                disks,
                opener,
                measure,
                waiter,
                [this](bool held) { loop.Hold(held); },
                places};
    }

    /// Texts of the first field of each event of that name.
    std::vector<std::string> Told(const std::string& name) const {
        std::vector<std::string> texts;
        for (const auto& event : events)
            if (event.name == name) texts.push_back(std::get<std::string>(event.fields.at(0).second));
        return texts;
    }

    std::string LogText() const { return files.Content(places.SystemDirectory() + "/AVClLogs.txt"); }
};

} // namespace ombrin::test
