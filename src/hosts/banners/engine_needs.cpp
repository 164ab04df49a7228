#include "hosts/banners/engine_needs.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace ombrin::banners {

namespace {

bool Write(const char* path, const char* text) {
    const int file = open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const auto size = std::strlen(text);
    const bool whole = write(file, text, size) == static_cast<ssize_t>(size);
    close(file);
    return whole;
}

std::string MapOf(unsigned id) { return std::to_string(id) + " " + std::to_string(id) + " 1"; }

/// As the engine does it: a user's own namespace, and in it those that cut a page's process off. Some systems let a
/// user make the first and nothing in it.
bool CanSandbox() {
    const std::string users = MapOf(geteuid()), groups = MapOf(getegid());
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) { // one thread of many: nothing but system calls
        const bool can = unshare(CLONE_NEWUSER) == 0 && Write("/proc/self/setgroups", "deny") &&
                         Write("/proc/self/gid_map", groups.c_str()) && Write("/proc/self/uid_map", users.c_str()) &&
                         unshare(CLONE_NEWPID | CLONE_NEWNET) == 0;
        _exit(can ? 0 : 1);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// The engine's own switch, for those who know that they need it.
bool SandboxIsOff() { return qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 1; }

QString ProcessFile() {
    return qEnvironmentVariable("QTWEBENGINEPROCESS_PATH", QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) +
                                                               QStringLiteral("/QtWebEngineProcess"));
}

QString ResourceFile() {
    const QString folder = qEnvironmentVariable(
        "QTWEBENGINE_RESOURCES_PATH", QLibraryInfo::path(QLibraryInfo::DataPath) + QStringLiteral("/resources"));
    return folder + QStringLiteral("/qtwebengine_resources.pak");
}

} // namespace

QString WhatTheEngineLacks() {
    if (!QFileInfo(ProcessFile()).isExecutable()) return ProcessFile() + QStringLiteral(" cannot be run");
    if (!QFileInfo(ResourceFile()).isReadable()) return ResourceFile() + QStringLiteral(" cannot be read");
    if (SandboxIsOff()) return {};
    if (geteuid() == 0) return QStringLiteral("the browser's engine keeps no sandbox for root");
    if (!CanSandbox()) return QStringLiteral("this system lets a user make no sandbox");
    return {};
}

} // namespace ombrin::banners
