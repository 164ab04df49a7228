// The machine that a client of the console runs on, as far as it is only written down.
#pragma once

#include "launch/directplay/registry_service.h"
#include "platform/recording/recording_components.h"
#include "platform/recording/recording_desktop.h"
#include "platform/recording/recording_disks.h"
#include "platform/recording/recording_network.h"
#include "platform/recording/recording_pings.h"
#include "platform/recording/recording_processes.h"

namespace ombrin::console {

struct Arguments;

/// What the recorded world answers can be changed by a command.
struct World {
    recording::TellingNetwork& network;
    recording::RecordingOpener& opener;
    recording::RecordingPings& pings;
    recording::RecordingProcesses& processes;
    recording::RecordingComponents& components;
    recording::RecordingDisks& disks;
    directplay::RegistryService& directPlay;
};

/// All fields are read before the first one counts; raises Refused for what it does not know.
void ChangeWorld(World& world, const Arguments& fields);

} // namespace ombrin::console
