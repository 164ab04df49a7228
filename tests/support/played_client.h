// A whole client whose user and server are played by a test. The client runs on a thread of its own and hands a baton
// over: a test goes on when the client has come to rest, or waits in a form, so that both never run at once.
#pragma once

#include "support/recorded_world.h"

#include <condition_variable>
#include <functional>
#include <gmock/gmock.h>
#include <mutex>
#include <optional>
#include <thread>

namespace ombrin::test {

class PlayedClient : private Waiter {
public:
    PlayedClient();
    ~PlayedClient() override;

    RecordedWorld world;
    GameLobby client{world.ForClient(*this)};
    View& view = client.MainView();
    Dialogs& forms = client.Forms();
    bool closeClientRaised = false;
    bool endsOnCloseClient = false; ///< as the stand-alone host does

    /// Runs it on the client's thread, and waits until the client is at rest.
    void Do(std::function<void()> work);

    // The user
    void Shows(std::optional<std::string> userData = std::nullopt) {
        Do([this, userData] { client.UserControl_Show(userData); });
    }
    void Presses(Control& control) {
        Gives(control.Name(), [&](UserInput& input) { return input.Click(control); });
    }
    void Types(TextBox& box, const std::string& text) {
        Gives(box.Name(), [&](UserInput& input) { return input.Type(box, text); });
    }
    void Selects(Control& list, long row, bool on = true) {
        Gives(list.Name(), [&](UserInput& input) { return input.Select(list, row, on); });
    }
    void DoubleClicks(Control& list, long row) {
        Gives(list.Name(), [&](UserInput& input) { return input.DoubleClick(list, row); });
    }
    void Chooses(Control& list, long row, MenuEntry& entry); ///< by the right button
    int Key(Control& control, int key, int shift = 0);       ///< what the key was set to
    void Ticks(CheckBox& box, bool on) {
        Gives(box.Name(), [&](UserInput& input) { return input.Check(box, on); });
    }
    void Answers(BoxResult button) {
        Gives("answer", [&](UserInput& input) { return input.PressButton(button); });
    }
    void Closes(Form& form) {
        Gives(form.Name(), [&](UserInput& input) { return input.Close(form); });
    }
    Refusal Tries(std::function<Refusal(UserInput&)> input);
    void Passes(Milliseconds time) {
        Do([this, time] { advanceTo = world.clock.Now() + time; });
    }

    // The server
    recording::PlayedSocket& Server() { return world.network.Named("Winsock"); }
    void Accepts() {
        Do([this] { Server().Accept(); });
    }
    void Sends(const std::string& data) {
        Do([this, data] { Server().Sends(data); });
    }
    /// The oldest message that was not looked at yet, empty when there is none.
    std::string Heard();
    /// What a box tells, which the user closes.
    void Refuses(const std::string& data) {
        Sends(data);
        Answers(BoxResult::Ok);
    }
    void HangsUp() {
        Do([this] { Server().CloseByPeer(); });
    }

    // What is seen
    std::string Top() const; ///< name of the top form, empty for the main view
    std::string BoxText() const;
    /// By a box, which he closes.
    void IsTold(const testing::Matcher<const std::string&>& text) {
        EXPECT_THAT(BoxText(), text);
        Answers(BoxResult::Ok);
    }
    const Session& Marks() const { return client.Marks(); }
    static std::vector<std::string> Texts(const RowList& rows);
    static std::vector<std::string> Texts(const FlexGrid& grid); ///< "sender: text" of each line
    std::vector<std::string> Chat() const { return Texts(view.msflxMainChatLines); }

    // Ways that many tests go
    /// Stored choices keep the dialogs of a first start away.
    void HasChosen(const std::string& displayedGames = "Go;Chess;");
    /// Fills the logon dialog and presses Connect.
    void Connects(const std::string& name = "ann", const std::string& password = "pw");
    /// From the start to the lobby Go, with ann, bob and cid.
    void LogsOn();
    /// From the lobby: a room of his own, which he names and the server makes.
    void CreatesRoom(const std::string& name);
    /// From the lobby: bob's room, which is selected.
    void EntersRoom();

private:
    /// An input that has to be taken.
    void Gives(const std::string& what, std::function<Refusal(UserInput&)> input);
    void RunUntil(const bool& ended) override;
    void Block(Milliseconds) override {}
    void Breathe() override {}
    void PassTime();
    bool DispatchOne();

    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> work;
    bool atRest = false, over = false;
    std::optional<TimePoint> advanceTo;
    std::size_t heard = 0;
    std::thread thread; ///< last, as it uses all the others
};

} // namespace ombrin::test
