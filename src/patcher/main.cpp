// OBPatch: started by the client just before it ends, it finishes the update and starts the client again.
#include "foundation/settings.h"
#include "foundation/text.h"
#include "patcher/notice.h"
#include "patcher/patch.h"
#include "patcher/trial.h"
#include "platform/posix/clock.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/share.h"
#include "ui/text/localisation.h"
#include "update/directories.h"

#include <CLI/CLI.hpp>
#include <clocale>
#include <iostream>

namespace ombrin::patcher {

namespace {

constexpr Milliseconds kLongestRegistration{10'000};

class StandardErrorBox : public PlainBox {
public:
    void ShowPlain(const std::string& text) override { std::cerr << "OBPatch: " << text << "\n"; }
};

/// The client's log has it all, in English; the user hears what concerns him, in the client's language.
class DesktopReporter : public Reporter {
public:
    DesktopReporter(Log& log, Localisation& language, const CodePage& page)
        : log(log), language(language), page(page) {}

    void Step(const std::string& what) override { Trace(what); }
    void Waiting(const LanguageText& what) override { Tell(what, "", Urgency::Passing); }
    void Failed(const LanguageText& what, const std::string& why) override { Tell(what, why, Urgency::UntilRead); }

private:
    void Trace(const std::string& what) { log.TraceMessage(Join("OBPatch: ", page.FromUtf8(what).value_or(what))); }
    void Tell(const LanguageText& what, const std::string& why, Urgency urgency) {
        const std::string reason = why.empty() ? "" : Join("\n\n", why);
        Trace(Join(what.english, reason));
        const std::string told = Join(page.ToUtf8(language.TranslateWord(what.key, what.english)), reason);
        std::cerr << "OBPatch: " << told << "\n";
        ShowNotice(told, urgency);
    }

    Log& log;
    Localisation& language;
    const CodePage& page;
};

int Run(double patience, double trial) {
    ClientHome home(std::nullopt);
    PosixFiles& files = home.files;
    const CodePage& page = home.page;
    const Places& places = home.places;
    ExportHome(home.root);

    const SystemClock clock;
    StandardErrorBox box;
    Log log(files, clock, places.SystemDirectory(), box);
    Trap trap(log);
    IniFiles inis(files, places.WindowsDirectory());
    Profile profile(inis, trap);
    Localisation language(profile);
    DesktopReporter reporter(log, language, page);
    Settings settings(files, places.SettingsFile());
    const auto directories = UpdateDirectories::Of(places, settings);
    const std::string installed = InstalledProgram("OmbrinExe");
    if (directories.client.empty() && installed.empty()) {
        reporter.Failed(text::kPatchNoStart, std::string(text::kUpdateNoClientDirectory.english));
        return 1;
    }
    const auto folder = [&files](const std::string& directory) {
        std::string native = files.Native(directory);
        if (!native.empty()) native.pop_back(); // the closing separator
        return native;
    };
    PosixComponents components(page);
    const auto milliseconds = [](double seconds) { return Milliseconds(static_cast<long>(seconds * 1000)); };
    Patch patch{
        .systemFolder = folder(directories.system),
        .clientFolder = folder(directories.client),
        .windowsFolder = folder(directories.windows),
        .installedClient = installed,
        .patience = milliseconds(patience),
        .trial = milliseconds(trial),
        // A component runs its own code when it is loaded. If that fails badly, the hand-over goes on all the same.
        .registerComponent =
            [&](const std::string& component) {
                const std::string path = page.FromUtf8(component).value_or(component);
                if (!RunApart([&] { RegisterServer(components, trap, path, true); }, kLongestRegistration))
                    log.TraceMessage(Join(path, " failed to register"));
            },
        .reporter = reporter,
    };
    return patch.Run();
}

} // namespace

} // namespace ombrin::patcher

int main(int argc, char** argv) {
    std::setlocale(LC_TIME, "");
    double patience = 120, trial = 5;
    CLI::App app{"Finishes an update of Ombrin when its client has ended, and starts it again.", "OBPatch"};
    app.set_version_flag("--version", "OBPatch " OMBRIN_VERSION, "Print the version and exit");
    const auto seconds = CLI::Range(0.0, 86'400.0).description("");
    app.add_option("--wait", patience, "How long to wait for a running client to end")
        ->check(seconds)
        ->type_name("S")
        ->capture_default_str();
    app.add_option("--trial", trial, "A client that fails within this time has not started")
        ->check(seconds)
        ->type_name("S")
        ->capture_default_str();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return app.exit(problem) == 0 ? 0 : 2;
    }
    try {
        return ombrin::patcher::Run(patience, trial);
    } catch (const std::exception& error) {
        std::cerr << "OBPatch: " << error.what() << "\n";
        ombrin::patcher::ShowNotice(error.what(), ombrin::patcher::Urgency::UntilRead);
        return 1;
    }
}
