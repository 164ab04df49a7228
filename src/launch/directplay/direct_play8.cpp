#include "launch/directplay/direct_play8.h"

#include "foundation/text.h"

#include <algorithm>
#include <limits>

namespace ombrin {

using namespace directplay;

namespace {

/// What a key's name and a display name are read into.
constexpr std::size_t kKeyLength = 254, kNameLength = 149;

} // namespace

void DirectPlay8::InitDirectX8() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("InitDirectX8() called");
        g_DP8AppCount = GetSubkeyCount(kApplications8);
        if (g_DP8AppCount < 1) {
            desk.TraceMessage("InitDirectX8() no DirectX8 games found");
            return;
        }
        desk.TraceMessage("DirectPlay8 games found");
        g_DP8LobbyClient.reset(); // of an earlier start, before the form that it tells
        g_DX8 = service.CreateDirectX8();
        g_DP8LobbyClient = g_DX8->DirectPlayLobbyClientCreate();
        g_DP8EventForm = std::make_unique<frmDirectPlay>();
        g_DP8LobbyClient->RegisterMessageHandler(*g_DP8EventForm);
        g_DP8AppHandle = 0;
    });
}

void DirectPlay8::DirectX8CleanUp() {
    desk.trap(__func__, [&] {
        if (g_DP8AppCount > 0) {
            if (g_DP8AppHandle != 0) {
                try {
                    if (g_DP8LobbyClient) g_DP8LobbyClient->ReleaseApplication(g_DP8AppHandle);
                } catch (const RuntimeError&) { // it may have ended by itself
                }
                desk.TraceMessage(Join("DirectX8CleanUp releasing application: ", std::to_string(g_DP8AppHandle)));
            }
            if (g_DP8LobbyClient) g_DP8LobbyClient->Close();
            g_DP8LobbyClient.reset();
            g_DP8EventForm.reset();
            g_DX8.reset();
        }
        desk.TraceMessage("DirectX8CleanUp called");
    });
}

void DirectPlay8::GetDirectPlay8Games(std::string& list) {
    desk.trap(__func__, [&] {
        if (GetSubkeyCount(kApplications8) == 0 || !g_DP8LobbyClient) return;
        const int count = g_DP8LobbyClient->GetCountLocalPrograms("");
        for (int i = 1; i <= count; ++i) (list += g_DP8LobbyClient->GetLocalProgram(i).ApplicationName) += ';';
    });
}

bool DirectPlay8::DirectPlay8Game(std::string_view name) {
    bool found = false;
    desk.trap(__func__, [&] {
        const auto keys = registry.Subkeys(kApplications8);
        found = std::any_of(keys.begin(), keys.end(), [&](const std::string& key) {
            if (key.size() > kKeyLength) return false;
            const auto held = registry.Read(Join(kApplications8, "\\", key), "ApplicationName");
            const auto* text = held ? std::get_if<std::string>(&*held) : nullptr;
            return text != nullptr && text->size() <= kNameLength && *text == name;
        });
    });
    return found;
}

void DirectPlay8::LaunchDP8Game(const Launch& launch) {
    desk.trap(__func__, [&] {
        const std::string guid = GuidOf(records.DirectPlayApplication(launch.game));
        if (guid.empty()) {
            desk.trap.log.LogError("Error: could not launch DirectX 8 game, could not find the game's GUID.", false);
            return;
        }
        desk.TraceMessage(Join("LaunchDP8Game AppGUID: ", guid));
        const ApplicationDescription description{kMigrateHost, std::string(kSessionInstance), guid, 0, launch.room};
        const ConnectionSettings settings{launch.isHost ? kConnectAsHost : 0, description, launch.user, launch.address,
                                          launch.address};
        const ConnectInfo info{kLaunchNew, guid, settings};
        if (!launch.isHost) processes.Sleep(kJoinDelay);
        g_DP8AppHandle = g_DP8LobbyClient->ConnectApplication(info, kWaitWithoutEnd, 0);
    });
}

/// The last match wins.
std::string DirectPlay8::GuidOf(std::string_view application) {
    if (!g_DP8LobbyClient)
        throw RuntimeError(ErrorNumber::ObjectNotSet,
                           "DirectPlay 8 was not there when the client started; start the client anew");
    std::string guid;
    const int count = g_DP8LobbyClient->GetCountLocalPrograms("");
    for (int i = 1; i <= count; ++i)
        if (const ApplicationInfo info = g_DP8LobbyClient->GetLocalProgram(i); info.ApplicationName == application)
            guid = info.guidApplication;
    return guid;
}

std::int16_t DirectPlay8::GetSubkeyCount(std::string_view key) {
    std::size_t count = 0;
    desk.trap("Configure_Click", [&] { count = registry.Subkeys(key).size(); });
    return static_cast<std::int16_t>(std::min<std::size_t>(count, std::numeric_limits<std::int16_t>::max()));
}

} // namespace ombrin
