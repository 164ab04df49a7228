#include "platform/session_applications.h"

#include "foundation/ini_document.h"
#include "foundation/runtime_error.h"
#include "foundation/text.h"

namespace ombrin {

namespace {

using Value = ApplicationStart::Value;

std::string TextOf(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    return std::get<std::string>(value);
}

std::string Field(const ApplicationStart& start, std::string_view wanted) {
    for (const auto& [name, value] : start.session)
        if (name == wanted) return TextOf(value);
    return {};
}

/// DPLCONNECTION_CREATESESSION of one generation, DPLCONNECTSETTINGS_HOST of the other.
bool Hosts(const ApplicationStart& start) {
    return Field(start, "connectionFlags") == (start.operation == "RunApplication" ? "2" : "1");
}

} // namespace

long SessionApplications::Run(const ApplicationStart& start) {
    if (start.program.empty())
        throw RuntimeError(ErrorNumber::FileNotFound,
                           Join("no program is registered for the application ", Field(start, "application")));
    CommandLine command;
    command.text = start.program;
    command.programLength = command.text.size();
    if (!start.commandLine.empty()) command.text += Join(" ", start.commandLine);
    command.directory = start.directory;
    command.environment = {{"DIRECTPLAY_SESSION", Describe(start)},
                           {"DIRECTPLAY_HOST", Hosts(start) ? "1" : "0"},
                           {"DIRECTPLAY_ADDRESS", Field(start, "address")}};
    const Processes::TaskId task = processes.Shell(command);
    if (task == Processes::kNone)
        throw RuntimeError(ErrorNumber::FileNotFound,
                           Join("the application's program cannot be started: ", command.text));
    return task;
}

/// The file's path.
std::string SessionApplications::Describe(const ApplicationStart& start) {
    IniDocument document;
    document.SetValue("Session", "operation", start.operation);
    for (const auto& [name, value] : start.session)
        if (!document.SetValue("Session", name, TextOf(value)))
            throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                               Join("the session's ", name, " cannot be written down"));
    const std::string path = Join(folder, "/DirectPlaySession.ini");
    files.Update(path, Files::Readers::UserOnly, [&](const std::optional<std::string>&) { return document.Text(); });
    return path;
}

} // namespace ombrin
