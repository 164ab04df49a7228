// ombrin-console: the client without a window, as JSON lines.
#include "hosts/console/commands.h"
#include "hosts/console/reading.h"
#include "hosts/game_machine.h"
#include "launch/directplay/registry_service.h"
#include "platform/picture_files.h"
#include "platform/posix/client_start.h"
#include "platform/posix/end_signals.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/posix_desktop.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/posix_network.h"
#include "platform/posix/posix_pings.h"
#include "platform/posix/share.h"
#include "platform/recording/recording_applications.h"
#include "platform/sodium/sodium_integrity.h"

#include <CLI/CLI.hpp>
#include <clocale>
#include <iostream>

namespace ombrin::console {

namespace {

struct Options {
    std::optional<std::string> home;
    bool virtualTime = false, wire = false;
    std::vector<std::string> real; ///< services that reach out
    double waitScale = 1;

    bool IsReal(std::string_view service) const { return std::find(real.begin(), real.end(), service) != real.end(); }
};

const std::vector<std::string> kServices{"process", "ping",     "sound", "browser", "clipboard",
                                         "open",    "register", "keys",  "wait"};

std::optional<int> Parse(int argc, char** argv, Options& options) {
    CLI::App app{"The Ombrin client without a window: commands and events as JSON lines.", "ombrin-console"};
    app.set_version_flag("--version", "ombrin-console " OMBRIN_VERSION, "Print the version and exit");
    app.add_option("--home", options.home, "Folder of the client's files; made when missing")->type_name("DIR");
    app.add_flag("--virtual-time", options.virtualTime, "Timers run only on \"advance\"; a wait takes no time");
    const auto* real = app.add_option("--real", options.real, "Reach out for real: in everything, or in what is named")
                           ->expected(0, -1)
                           ->delimiter(',')
                           ->check(CLI::IsMember(kServices))
                           ->type_name("SERVICE,...");
    app.add_option("--wait-scale", options.waitScale, "Real blocking waits last F times as long")
        ->check(CLI::Range(0.0, 1000.0))
        ->type_name("F");
    app.add_flag("--wire", options.wire, "Also report each message sent and each arrival");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return app.exit(problem) == 0 ? 0 : 2;
    }
    if (real->count() > 0 && options.real.empty()) options.real = kServices;
    return std::nullopt;
}

/// Tells the host what appears and disappears.
class Teller : public FormObserver {
public:
    Teller(ConsoleLoop& loop, const CodePage& page) : loop(loop), page(page) {}
    void FormShown(Form& form) override { loop.Write(DescribeShown(form, page)); }
    void FormHidden(Form& form) override { loop.Write(DescribeHidden(form)); }
    void MenuOpened(Menu& menu) override { loop.Write(DescribeMenu(menu, page)); }

private:
    ConsoleLoop& loop;
    const CodePage& page;
};

int Run(const Options& options) {
    ClientHome home(options.home);
    const CodePage& page = home.page;
    const bool realProcesses = options.IsReal("process");
    if (!realProcesses) home.places.patcher.clear(); // the recorded machine has what its client's home has
    ExportHome(home.root);
    const FileLock clientFiles = HoldClientFiles(home.places, home.files);

    const SystemClock realClock;
    VirtualClock virtualClock;
    const Clock& clock = options.virtualTime ? static_cast<const Clock&>(virtualClock) : realClock;
    EventLoop events(clock);
    ConsoleLoop loop(events, options.virtualTime ? &virtualClock : nullptr, options.waitScale);
    const recording::Journal journal = [&](const recording::Event& event) { loop.Write(DescribeEvent(event, page)); };

    PosixNetwork sockets(events);
    recording::TellingNetwork network(sockets, journal, options.wire);
    recording::RecordingSound recordedSound(journal);
    recording::RecordingClipboard recordedClipboard(journal);
    recording::RecordingPings recordedPings(journal);
    recording::RecordingProcesses recordedProcesses(journal);
    recording::RecordingComponents recordedComponents(journal);
    recording::RecordingOpener recordedOpener(journal);
    recording::RecordingBrowser recordedBrowser(journal);
    PosixClipboard clipboard(page);
    PosixPings pings(loop);
    NoNotifier notifier;
    PosixLocalFiles localFiles(page);
    PictureFiles pictures(localFiles);
    PosixComponents components(page);
    SodiumIntegrity integrity;
    GameMachine machine(home.files, home.places, page, loop);
    PosixSound sound({home.root + "/app", ShareFolder()}, machine.settings, page, loop);
    recording::RecordingApplications recordedApplications(journal);
    directplay::RegistryService directPlay(
        machine.registry, realProcesses ? static_cast<Applications&>(machine.applications) : recordedApplications);
    recording::RecordingDisks disks(&machine.disks);
    PosixOpener opener(page);
    const recording::FixedMeasure measure;

    GameLobby client({network,
                      events,
                      clock,
                      home.files,
                      localFiles,
                      options.IsReal("sound") ? static_cast<Sound&>(sound) : recordedSound,
                      options.IsReal("clipboard") ? static_cast<Clipboard&>(clipboard) : recordedClipboard,
                      options.IsReal("ping") ? static_cast<Pings&>(pings) : recordedPings,
                      notifier,
                      recordedBrowser,
                      pictures,
                      realProcesses ? static_cast<Processes&>(machine.processes) : recordedProcesses,
                      options.IsReal("register") ? static_cast<Components&>(components) : recordedComponents,
                      integrity,
                      machine.registry,
                      directPlay,
                      disks,
                      options.IsReal("open") ? static_cast<TargetOpener&>(opener) : recordedOpener,
                      measure,
                      loop,
                      [&](bool held) { events.Hold(held); },
                      home.places});
    client.CloseClient = [&] { journal({"CloseClient", {}}); };
    Teller teller(loop, page);
    client.Stack().SetObserver(&teller);
    MainLobby entry(network, client.Stack(), client.Trace());
    Commands commands(
        client, entry, loop,
        {network, recordedOpener, recordedPings, recordedProcesses, recordedComponents, disks, directPlay}, page);
    loop.Attach(commands, client.Stack());

    const EndSignals signals(events, [&] { client.Stack().RequestEnd(); });
    loop.RunToTheEnd();
    try {
        client.UserControl_Terminate();
    } catch (const ProgramEnding&) { // a box that nobody can answer any more
    }
    return 0;
}

} // namespace

} // namespace ombrin::console

int main(int argc, char** argv) {
    using namespace ombrin::console;
    std::setlocale(LC_TIME, "");
    Options options;
    if (const auto status = Parse(argc, argv, options)) return *status;
    try {
        return Run(options);
    } catch (const std::exception& error) {
        std::cerr << "ombrin-console: " << error.what() << "\n";
        return 1;
    }
}
