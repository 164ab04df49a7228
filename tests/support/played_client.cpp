#include "support/played_client.h"

#include "foundation/runtime_error.h"

namespace ombrin::test {

PlayedClient::PlayedClient() {
    client.CloseClient = [this] {
        closeClientRaised = true;
        if (endsOnCloseClient) world.loop.Post([this] { client.Stack().RequestEnd(); });
    };
    thread = std::thread([this] {
        const bool never = false;
        RunUntil(never);
        try {
            client.UserControl_Terminate();
        } catch (const ProgramEnding&) {
        }
        const std::lock_guard lock(mutex);
        atRest = over = true;
        changed.notify_all();
    });
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return atRest; });
}

PlayedClient::~PlayedClient() {
    for (const Form* form : client.Stack().Visible()) {
        const auto* box = dynamic_cast<const MessageBoxForm*>(form);
        EXPECT_FALSE(box != nullptr && box->Text().starts_with("Error: occured in module")) << box->Text();
    }
    Do([this] { client.Stack().RequestEnd(); });
    thread.join();
}

bool PlayedClient::DispatchOne() {
    try {
        return world.loop.DispatchOne();
    } catch (const ProgramEnding&) {
        return true;
    }
}

void PlayedClient::RunUntil(const bool& ended) {
    while (!ended && !client.Stack().Ending()) {
        if (DispatchOne()) continue;
        if (advanceTo) {
            PassTime();
            continue;
        }
        std::unique_lock lock(mutex);
        atRest = true;
        changed.notify_all();
        changed.wait(lock, [this] { return work != nullptr; });
        const auto now = std::exchange(work, nullptr);
        lock.unlock();
        try {
            now();
        } catch (const ProgramEnding&) {
        }
    }
}

void PlayedClient::PassTime() {
    const TimePoint next = world.loop.NextAlarm();
    if (next <= *advanceTo && next > world.clock.Now()) return world.clock.MoveTo(next);
    world.clock.MoveTo(*advanceTo);
    advanceTo.reset();
}

void PlayedClient::Do(std::function<void()> given) {
    std::unique_lock lock(mutex);
    if (over) return;
    atRest = false;
    work = std::move(given);
    changed.notify_all();
    changed.wait(lock, [this] { return atRest; });
}

Refusal PlayedClient::Tries(std::function<Refusal(UserInput&)> input) {
    // A handler that waits lets the test go on before it returns: its input was taken then.
    const auto refusal = std::make_shared<Refusal>();
    Do([this, refusal, input = std::move(input)] { *refusal = input(client.Input()); });
    return *refusal;
}

void PlayedClient::Gives(const std::string& what, std::function<Refusal(UserInput&)> input) {
    const Refusal refusal = Tries(std::move(input));
    EXPECT_FALSE(refusal) << what << ": " << refusal.value_or("");
}

void PlayedClient::Chooses(Control& list, long row, MenuEntry& entry) {
    Gives(list.Name(), [&](UserInput& input) { return input.RightClick(list, row); });
    Gives(entry.Name(), [&](UserInput& input) { return input.Choose(entry); });
}

int PlayedClient::Key(Control& control, int key, int shift) {
    const auto pressed = std::make_shared<int>(key);
    Gives(control.Name(), [&control, pressed, shift](UserInput& input) { return input.Key(control, *pressed, shift); });
    return *pressed;
}

std::string PlayedClient::Heard() {
    const auto& sent = Server().sent;
    return heard < sent.size() ? sent[heard++] : std::string();
}

std::string PlayedClient::Top() const {
    const Form* top = const_cast<GameLobby&>(client).Stack().Top();
    return top == nullptr ? std::string() : top->Name();
}

std::string PlayedClient::BoxText() const {
    const auto* box = dynamic_cast<const MessageBoxForm*>(const_cast<GameLobby&>(client).Stack().Top());
    return box == nullptr ? std::string() : box->Text();
}

std::vector<std::string> PlayedClient::Texts(const RowList& rows) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < rows.Count(); ++i) texts.push_back(rows.Text(rows.At(i)));
    return texts;
}

std::vector<std::string> PlayedClient::Texts(const FlexGrid& grid) {
    std::vector<std::string> lines;
    for (int row = 1; row < grid.Rows(); ++row)
        if (!grid.TextAt(row, 0).empty() || !grid.TextAt(row, 1).empty())
            lines.push_back(grid.TextAt(row, 0) + ": " + grid.TextAt(row, 1));
    return lines;
}

void PlayedClient::HasChosen(const std::string& displayedGames) {
    client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "English");
    client.Inis().Write("AV.ini", "GameFilter", "DisplayedGames", displayedGames);
}

void PlayedClient::Connects(const std::string& name, const std::string& password) {
    Types(forms.UsrNmPwIP.LogonName, name);
    Types(forms.UsrNmPwIP.Password, password);
    Types(forms.UsrNmPwIP.HostMachine, "lobby.example");
    Types(forms.UsrNmPwIP.HTTPPort, "7777");
    Presses(forms.UsrNmPwIP.Connect);
}

void PlayedClient::LogsOn() {
    HasChosen();
    Shows();
    Connects();
    Accepts();
    EXPECT_EQ(Heard(), "Ombrin:15:ann;temp;192.0.2.10;pw;:~");
    Sends("45:10.0.0.5;~22:Go,1;Chess,2;~");
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Go;10.0.0.5;;:~");
    Sends("0:ann;1;bob;1;cid;1;~47:ann;bob;cid;~");
    EXPECT_EQ(Heard(), "Ombrin:19:ann:~");
    EXPECT_TRUE(view.Enabled());
    world.events.clear();
}

void PlayedClient::CreatesRoom(const std::string& name) {
    Presses(view.Create);
    Types(forms.NewRoom.NewRoomName, name);
    Presses(forms.NewRoom.OKButton);
    Heard();
    Sends("5:ann;10.0.0.5;N;~");
}

void PlayedClient::EntersRoom() {
    Presses(view.Enter);
    Heard();
    Sends("3:bob;10.0.0.9;Y;ann;10.0.0.5;N;~7:bob;~");
}

} // namespace ombrin::test
