#include "launch/directplay/cls_direct_play.h"

namespace ombrin {

using namespace directplay;

namespace {

constexpr std::string_view kTcpIp = "{EBFE7BA0-628D-11D2-AE0F-006097B01411}", kTcpIpClass = "CLSID_DP8SP_TCPIP";
constexpr std::string_view kApplication = "{4287F2A7-93D2-4E94-93C6-21C865430D85}";
constexpr long kPort = 80;

} // namespace

void clsDirectPlay::GetDirectPlay8Games() {
    trap(__func__, [&] {
        DP8LobbyClient.reset();
        dx8 = service.CreateDirectX8();
        DP8LobbyClient = dx8->DirectPlayLobbyClientCreate();
        handler = std::make_unique<frmDirectPlay>();
        DP8LobbyClient->RegisterMessageHandler(*handler);
        const int count = DP8LobbyClient->GetCountLocalPrograms(kTcpIp);
        for (int i = 1; i <= count; ++i) DP8LobbyClient->GetLocalProgram(i);
    });
}

void clsDirectPlay::LaunchDP8Game() {
    trap(__func__, [&] {
        DP8LobbyClient.reset();
        dx8 = service.CreateDirectX8();
        const auto peer = dx8->DirectPlayPeerCreate();
        const auto device = dx8->DirectPlayAddressCreate(), host = dx8->DirectPlayAddressCreate();
        device->SetSP(kTcpIpClass);
        host->SetSP(kTcpIpClass);
        host->AddComponentString("hostname", session.m_RoomHostAddress);
        host->AddComponentLong("port", kPort);
        ApplicationDescription description;
        description.guidApplication = kApplication;
        peer->Connect(description, *host, *device, 0, session.m_UserName);
    });
}

} // namespace ombrin
