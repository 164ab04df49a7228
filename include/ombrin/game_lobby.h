// The main control: a user's presence on a server, with the lobby, its rooms, chat and games.
#pragma once

#include <ombrin/control.h>

#include <optional>

namespace ombrin::host {

class OMBRIN_API GameLobby : public Control {
public:
    explicit GameLobby(Machine& machine); ///< which outlives it
    ~GameLobby() override;

    /// The host must end it. Raised from inside a routine that still finishes its steps: only note it.
    std::function<void()> CloseClient;

    /// Starts the session. With a record `<user>;<lobby>;<host>;<port>` the user is known, and only the choice of a
    /// language is shown, at the first start in a home; else the logon dialogs are, and the call returns when they are
    /// through.
    void Show(const std::optional<std::string>& userData = std::nullopt);

    // The members, in the order of the interface. A handle is null where its object is not there.
    using Handle = const void*;
    using RegistryValue = std::variant<std::string, std::int32_t>;
    std::string Test() const; ///< of no use here
    void SetTest(const std::string& text);
    std::string m_DPGameList() const; ///< names of applications, each followed by ";"
    void Set_m_DPGameList(const std::string& list);
    Handle objDX() const;
    Handle objDP4() const;
    Handle objDPLobby() const;
    Handle objDPEnumServProv() const;
    Handle objDPEnumLocApps() const;
    Handle objDPLobbyConnection() const;
    Handle objDPSessionData() const;
    void Configure_Click();
    void DisplayPMDialog();
    std::string SetAXParams(const std::string& pUserName);
    std::string UserName() const;
    void SetUserName(const std::string& name);
    void Buddies_Click() {}
    bool IsSocketConnected(); ///< otherwise it tells the user and disables the view
    void SetGameLobby(const std::string& Buf);
    void DisplayMainLobby(const std::string& Buf);
    void AccountCreated(const std::string& Buf);
    void DisplayLogonBanner();
    void DisplayCreateAccount(bool ShowLogon);
    void ProcessLogonBanner();
    std::string ConfiguredGame() const;
    void SetConfiguredGame(const std::string& game);
    std::string DPGameList() const;
    void SetDPGameList(const std::string& list);
    void InitDirectX();
    void EnumDPLocApps();
    void LaunchDPGame(const std::string& LaunchIP);
    void CheckAutoStart();
    bool SendData(const std::string& Data); ///< false when it could not be sent, of which the user is told
    void ProcessRoomPassword();
    /// A registry key's path stands for its handle. Types are 1 (text) and 4 (number); another one writes nothing. The
    /// result is 0, or the system's number of what went wrong.
    std::int32_t SetValueEx(const std::string& hKey, const std::string& sValueName, std::int32_t lType,
                            const RegistryValue& vValue);
    /// -1 for a value of another type. Raises 5 for one that is missing.
    std::int32_t QueryValueEx(const std::string& lhKey, const std::string& szValueName, RegistryValue& vValue);
    void CloseSocket(); ///< ends the connection and logs on anew, by the dialogs
    void btnAddBuddy_Click();
    void btnRemoveBuddy_Click();

    bool IsConnected() const;           ///< without telling anybody
    bool IsInLobby() const;             ///< the lobby's users have come, and the connection is there
    std::string m_UserName() const;     ///< who is logged on
    std::string m_CurrentLobby() const; ///< "temp" before the first one
    std::string m_CurrentRoom() const;  ///< empty for none

    std::string_view ClassName() const override { return "GameLobby"; }
    Controls& View() override;
    void ReadProperties(const Bag& bag) override;

    struct OMBRIN_INSIDE Parts;
    Parts& Inside() { return *parts; } ///< for the library itself

private:
    Stored& Properties() const override;
    std::unique_ptr<Parts> parts;
};

} // namespace ombrin::host
