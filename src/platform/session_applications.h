// Applications of this machine. One finds its session in its environment and in a file:
//   DIRECTPLAY_SESSION   path of an INI file with all fields of the description in its section [Session]
//   DIRECTPLAY_HOST      "1" on the side that hosts, else "0"
//   DIRECTPLAY_ADDRESS   the host's address
#pragma once

#include "foundation/files.h"
#include "platform/applications.h"
#include "platform/processes.h"

namespace ombrin {

class SessionApplications : public Applications {
public:
    /// The file is written into `folder`, anew for each start.
    SessionApplications(Files& files, Processes& processes, std::string folder)
        : files(files), processes(processes), folder(std::move(folder)) {}

    /// Raises 53, too, when the application has not registered its program, and what a failing disk raises.
    long Run(const ApplicationStart& start) override;

private:
    std::string Describe(const ApplicationStart& start);

    Files& files;
    Processes& processes;
    std::string folder;
};

} // namespace ombrin
