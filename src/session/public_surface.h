// What the library shows to hosts: its classes with their identifiers, and the members of each in the order of its
// interface.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace ombrin {

struct PublicClass {
    std::string_view name, identifier;
    std::string_view interfaceName, interfaceIdentifier;
    std::string_view eventsName, eventsIdentifier; ///< empty for a class without events
};

inline constexpr std::string_view kLibraryName = "Ombrin", kLibraryFile = "Ombrin.ocx", kLibraryVersion = "3.33";
inline constexpr std::string_view kLibraryIdentifier = "{FD2DA9C1-FCD1-4985-8866-1EE144CF88F5}";

inline constexpr std::array kPublicClasses{
    PublicClass{"MainLobby", "{A3638504-E3F2-468B-9060-EA64B2548563}",  //
                "_MainLobby", "{92A45EA6-C0CF-403E-8419-332B247B0FA8}", //
                "__MainLobby", "{F5D0630C-476B-4AC0-8A40-3F35B99BEEE5}"},
    PublicClass{"GameLobby", "{65C4425E-6CFE-4BFA-9B2C-4D9C2B2AF7EF}",  //
                "_GameLobby", "{F89B1C98-1D90-4AB5-BA1C-6E08A6143F76}", //
                "__GameLobby", "{CFAA0775-51C2-4AE0-9954-BC3699F9AD5E}"},
    PublicClass{"clsDirectPlay", "{6434284D-10D3-466A-9E19-14AA2D87AA7D}",  //
                "_clsDirectPlay", "{FEA85CF6-AA80-4C9A-8B95-0E0C93153602}", //
                "", ""},
};

/// A stored property is read, written and kept by the container; an object can only be seen to be there.
enum class MemberKind { Method, Text, Object, Stored };

struct PublicMember {
    std::string_view name;
    MemberKind kind = MemberKind::Method;
    std::string_view takes = {}; ///< a method's arguments: t text, b truth, n number, v any of these
    std::size_t leavable = 0;    ///< so many of the last can be left out
};

inline constexpr std::array kMainLobbyMembers{
    PublicMember{"m_GameLobby", MemberKind::Text},     PublicMember{"BackColor", MemberKind::Stored},
    PublicMember{"ForeColor", MemberKind::Stored},     PublicMember{"Enabled", MemberKind::Stored},
    PublicMember{"Font", MemberKind::Stored},          PublicMember{"BackStyle", MemberKind::Stored},
    PublicMember{"BorderStyle", MemberKind::Stored},   PublicMember{"Refresh"},
    PublicMember{"BytesReceived", MemberKind::Stored}, PublicMember{"Connect", MemberKind::Method, "vv", 2},
    PublicMember{"SendData", MemberKind::Method, "v"},
};

inline constexpr std::array kGameLobbyMembers{
    PublicMember{"Test", MemberKind::Text},
    PublicMember{"m_DPGameList", MemberKind::Text},
    PublicMember{"objDX", MemberKind::Object},
    PublicMember{"objDP4", MemberKind::Object},
    PublicMember{"objDPLobby", MemberKind::Object},
    PublicMember{"objDPEnumServProv", MemberKind::Object},
    PublicMember{"objDPEnumLocApps", MemberKind::Object},
    PublicMember{"objDPLobbyConnection", MemberKind::Object},
    PublicMember{"objDPSessionData", MemberKind::Object},
    PublicMember{"Configure_Click"},
    PublicMember{"DisplayPMDialog"},
    PublicMember{"BackColor", MemberKind::Stored},
    PublicMember{"ForeColor", MemberKind::Stored},
    PublicMember{"Enabled", MemberKind::Stored},
    PublicMember{"Font", MemberKind::Stored},
    PublicMember{"BackStyle", MemberKind::Stored},
    PublicMember{"BorderStyle", MemberKind::Stored},
    PublicMember{"Refresh"},
    PublicMember{"SetAXParams", MemberKind::Method, "t"},
    PublicMember{"UserName", MemberKind::Text},
    PublicMember{"Buddies_Click"},
    PublicMember{"IsSocketConnected"},
    PublicMember{"SetGameLobby", MemberKind::Method, "v"},
    PublicMember{"DisplayMainLobby", MemberKind::Method, "v"},
    PublicMember{"AccountCreated", MemberKind::Method, "v"},
    PublicMember{"DisplayLogonBanner"},
    PublicMember{"DisplayCreateAccount", MemberKind::Method, "b"},
    PublicMember{"ProcessLogonBanner"},
    PublicMember{"ConfiguredGame", MemberKind::Text},
    PublicMember{"DPGameList", MemberKind::Text},
    PublicMember{"InitDirectX"},
    PublicMember{"EnumDPLocApps"},
    PublicMember{"LaunchDPGame", MemberKind::Method, "v"},
    PublicMember{"CheckAutoStart"},
    PublicMember{"SendData", MemberKind::Method, "t"},
    PublicMember{"ProcessRoomPassword"},
    PublicMember{"SetValueEx", MemberKind::Method, "ttnv"},
    PublicMember{"QueryValueEx", MemberKind::Method, "ttv", 1},
    PublicMember{"CloseSocket"},
    PublicMember{"btnAddBuddy_Click"},
    PublicMember{"btnRemoveBuddy_Click"},
};

inline constexpr std::array kClsDirectPlayMembers{
    PublicMember{"dx8", MemberKind::Object},
    PublicMember{"DP8LobbyClient", MemberKind::Object},
    PublicMember{"GetDirectPlay8Games"},
    PublicMember{"LaunchDP8Game"},
};

/// Declared in this order by `GameLobby` behind `CloseClient`, the only one that is raised, and by `MainLobby` behind
/// `DataArrival`.
inline constexpr std::array<std::string_view, 8> kControlEvents{
    "Click", "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseMove", "MouseUp",
};

} // namespace ombrin
