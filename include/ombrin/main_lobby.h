// The entry control: the names of the games that a host offers, for a page that leads to the main control.
#pragma once

#include <ombrin/control.h>

namespace ombrin::host {

class OMBRIN_API MainLobby : public Control {
public:
    explicit MainLobby(Machine& machine); ///< which outlives it
    ~MainLobby() override;

    /// Asks the host that the stored property `IPAddress` names, at its port 80. The games come later, into the list
    /// "GameList" of the view, 10,000 rows of 1,024 characters at most; a host that cannot be reached leaves it empty.
    void Show();
    void Show(const std::string& ipAddress); ///< with that property

    std::string m_GameLobby() const; ///< `GameListBox=` and the game that was clicked last; empty before
    void Set_m_GameLobby(const std::string& text);
    std::int32_t BytesReceived() const; ///< stored, and not counted
    void SetBytesReceived(std::int32_t count);
    void Connect(const std::string& = {}, const std::string& = {}) {} ///< does nothing, as SendData
    void SendData(const std::string&) {}
    std::function<void(std::int32_t bytesTotal)> DataArrival; ///< never raised

    std::string_view ClassName() const override { return "MainLobby"; }
    Controls& View() override;
    void ReadProperties(const Bag& bag) override; ///< `IPAddress` among them

private:
    Stored& Properties() const override;
    struct OMBRIN_INSIDE Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace ombrin::host
