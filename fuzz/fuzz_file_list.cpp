// A client in a lobby gets a file list of any bytes, and what follows of it. The first line of an input sets the scene
// (Scene), the rest is cut at the byte 255: first the list, then steps (Take), each a letter with its text behind it.
// At the end a user who closes whatever is open comes to rest. The same bytes are read as signed sums, too.
#include "fuzzed_client.h"

#include "update/file_names.h"
#include "update/sums.h"

#include <algorithm>
#include <string>

namespace ombrin::fuzz {

namespace {

/// Lets nothing be touched that lies beside the three directories, nor more be written than has come.
class GuardedFiles : public LocalFiles {
public:
    GuardedFiles(LocalFiles& files, std::size_t arrivals) : files(files), allowance(arrivals) {}

    bool Write(const std::string& path, std::string_view bytes, WriteMode mode) override {
        Require(bytes.size() <= allowance, "no more is written than has come");
        allowance -= bytes.size();
        return files.Write(Inside(path), bytes, mode);
    }
    void Copy(const std::string& from, const std::string& to) override { files.Copy(Inside(from), Inside(to)); }
    bool Delete(const std::string& path) override { return files.Delete(Inside(path)); }
    bool SetModifiedTime(const std::string& path, std::uint64_t time) override {
        return files.SetModifiedTime(Inside(path), time);
    }
    std::optional<Space> FreeSpace(const std::string& folder) const override { return files.FreeSpace(folder); }
    std::unique_ptr<ByteSource> Open(const std::string& path) const override { return files.Open(Inside(path)); }
    std::string GetFileVersion(const std::string& path) const override { return files.GetFileVersion(Inside(path)); }

private:
    static const std::string& Inside(const std::string& path) {
        const auto holds = [&](const std::string& folder) {
            return path.starts_with(folder) && path.find_first_of(std::string("/\\\0", 3), folder.size()) > path.size();
        };
        Require(holds("/o/Client/") || holds("/home/system/") || holds("/home/windows/"),
                "a file lies in one of the three directories");
        const std::string_view name = NameOfPath(path);
        Require(!name.empty() && name != "." && name != "..", "a file has a name");
        return path;
    }

    LocalFiles& files;
    std::size_t allowance;
};

class FuzzedUpdate : private FuzzedClient {
public:
    explicit FuzzedUpdate(std::string_view input)
        : FuzzedClient(input, kPresses), files(world.localFiles, input.size()) {}

    void Run() {
        Scene(TakeLine(input));
        world.loop.Post([this] { client.UserControl_Show("ann;Go;127.0.0.1;7777"); });
        world.loop.Post([this] {
            world.network.Named("Winsock").Accept();
            Lists(TakePiece(input));
        });
        PlayOut(client);
    }

private:
    static constexpr int kPresses = 3000; ///< a user's patience: each entry of a list may have a box of its own

    void Scene(std::string_view marks) {
        const auto has = [&](char mark) { return marks.find(mark) != std::string_view::npos; };
        client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "English");
        if (!has('n')) client.Store().SaveSetting("Settings", "ClientDirectory", "/o");
        if (has('k')) client.Store().SaveSetting("Settings", "UpdateKey", std::string(Integrity::kKeyDigits, 'a'));
        if (has('r')) world.localFiles.refused = {"/o/Client/Map.dat", "/o/Client/More7.dat"};
        if (has('p')) world.processes.starts = {false};
        for (const FileInUse& file : kFilesInUse)
            for (const char* folder : {"/o/Client/", "/home/system/"})
                if (has('v')) Lies(folder + std::string(file.name));
    }
    void Lies(const std::string& path) {
        world.files.Update(path, Files::Readers::Everybody,
                           [](const auto&) { return std::optional<std::string>(";FileVersion=3.33\r\n"); });
    }

    void Lists(std::string_view list) {
        std::string payload(list);
        std::erase(payload, '~'); // which would end it
        world.network.Named("Winsock").Sends("50:" + payload + "~");
    }

    bool Feed() override {
        if (IsHeld() || input.empty()) return false;
        Take(TakePiece(input));
        return true;
    }
    void Press(Form& top) override {
        UserInput& user = client.Input();
        if (user.Close(top) && user.PressButton(BoxResult::No)) Require(false, "every form can be closed");
    }

    void Take(std::string_view step) {
        if (step.empty()) return;
        UserInput& user = client.Input();
        DownloadProgress& dialog = client.Forms().DownloadProgress;
        auto& server = world.network.Named("FileTransferSocket");
        const std::string_view text = step.substr(1);
        const bool connecting = server.State() == SocketState::Connecting;
        switch (step.front()) {
        case 'a':
            if (connecting) server.Accept();
            return;
        case 'f':
            if (connecting) server.Fail(ConnectFailure::Refused);
            return;
        case 'd':
            if (server.IsConnected() && !text.empty()) server.Sends(text);
            return;
        case 'h':
            if (server.IsConnected()) server.CloseByPeer();
            return;
        case 'l':
            return Lists(text);
        case 'o':
            if (user.PressButton(BoxResult::Ok)) user.Click(dialog.OK);
            return;
        case 'c':
            if (user.PressButton(BoxResult::Cancel)) user.Click(dialog.Cancel);
            return;
        case 't':
            if (world.loop.NextAlarm() < TimePoint::max()) world.clock.MoveTo(world.loop.NextAlarm());
            return;
        case 's':
            world.localFiles.room = world.localFiles.writtenAtMost = text.size();
            return;
        default:
            if (client.Stack().Top() != nullptr) user.Close(*client.Stack().Top());
        }
    }

    GuardedFiles files;
    GameLobby client{world.ForClient(*this, nullptr, &files)};
};

void ReadSums(std::string_view text) {
    const auto sums = Sums::Read(text);
    if (!sums) return;
    Require(text.size() <= Sums::kLongest && sums->rows.size() <= Sums::kMostLines, "sums keep their limits");
    Require(text.starts_with(sums->signedText), "what is signed is what was read");
    Require(sums->signature.size() == Integrity::kSignatureDigits, "a signature has its length");
    for (const Sums::Row& row : sums->rows)
        Require(row.sum.size() == Integrity::kSumDigits && IsPlainFileName(row.fileName), "a line is as it should be");
}

} // namespace

void Try(std::string_view input) {
    ReadSums(input);
    FuzzedUpdate(input).Run();
}

} // namespace ombrin::fuzz
