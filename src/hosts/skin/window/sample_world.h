// A machine in memory for a client that is only looked at: it opens nothing, plays nothing, and writes nothing down.
// Its one way out is to the pictures of a skin.
#pragma once

#include "hosts/desktop/look.h"
#include "hosts/desktop/qt_pictures.h"
#include "hosts/skin/skin.h"
#include "launch/directplay/registry_service.h"
#include "platform/hive_registry.h"
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

#include <QTemporaryDir>

namespace ombrin::skin {

/// Remembers the first picture that could not be loaded, and why.
class WatchedPictures : public Pictures {
public:
    explicit WatchedPictures(const CodePage& page) : real(page), page(page) {}
    std::shared_ptr<const LoadedPicture> LoadPicture(const std::string& path) override;

    std::string fault; ///< UTF-8; empty for none

private:
    desktop::QtPictures real;
    const CodePage& page;
};

class SampleWorld {
public:
    /// Has the skin in use. `languages` is the text of a language file. Raises std::runtime_error where there is no
    /// place for the link that leads to the skin.
    SampleWorld(const Skin& skin, const std::string& languages, const CodePage& page);

    Platform ForClient(const TextMeasure& measure, Waiter& waiter);
    EventLoop& Events() { return events; }
    recording::PlayedSocket& Server() { return network.Named("Winsock"); }
    /// What the skin asks of the window.
    desktop::Look::Wishes Wishes();
    /// What ended the loading of the skin early; empty where all of it was loaded.
    const std::string& LoadingFault() const { return pictures.fault; }

private:
    QTemporaryDir root; ///< has app/skins, and in it a link to the skin
    const recording::Journal journal = [](const recording::Event&) {};
    const SystemClock clock;
    EventLoop events{clock};
    Places places;
    recording::MemoryFiles files;
    recording::MemoryLocalFiles localFiles{files};
    WatchedPictures pictures;
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
    HiveRegistry registry{files, places.RegistryFile()};
    recording::RecordingApplications applications{journal};
    directplay::RegistryService directPlay{registry, applications};
    recording::RecordingDisks disks;
};

} // namespace ombrin::skin
