// A client in a lobby whose files are held against a release, and the server that has the newer ones.
#pragma once

#include "support/played_client.h"

#include <gmock/gmock.h>

namespace ombrin::test {

using Rows = std::vector<std::string>;

inline const std::string kQuestion = "In order to continue a required download is available.  Download now?";
inline const std::string kCanceled = "Download canceled.  This is a required download, if you wish to use this server "
                                     "in the future you must reconnect and download this update.";
inline const std::string kComplete = "Download complete.  This program will restart and patch itself.";
inline const std::string kPatcher = "/home/system/OBPatch.exe";

/// The client directory is /o/Client/.
struct Updating : PlayedClient {
    explicit Updating(const std::string& clientDirectory = "/o", const std::string& key = "") {
        client.Store().SaveSetting("Settings", "ClientDirectory", clientDirectory);
        client.Store().SaveSetting("Settings", "UpdateKey", key);
        LogsOn();
    }

    void Lies(const std::string& path, const std::string& content) {
        world.files.Update(path, Files::Readers::Everybody, [&](const auto&) { return std::optional(content); });
    }
    void Has(const std::string& path, const std::string& version) { Lies(path, ";FileVersion=" + version + "\r\n"); }
    /// "name: content" of each file there, but the log.
    Rows FilesIn(const std::string& folder) const {
        Rows files;
        for (const std::string& name : world.files.NamesIn(folder))
            if (name != "AVClLogs.txt") files.push_back(name + ": " + world.files.Content(folder + "/" + name));
        return files;
    }

    void Lists(const std::string& files) { Sends("50:up.example;4000;" + files + "~"); }
    void Agrees(const std::string& files) {
        Lists(files);
        ASSERT_EQ(BoxText(), kQuestion);
        Answers(BoxResult::Ok);
    }
    void Begins(const std::string& files) {
        Agrees(files);
        Do([this] { FileServer().Accept(); });
    }
    void LosesFileServer() {
        Do([this] { FileServer().CloseByPeer(); });
    }
    void EndsProgram() {
        Do([this] { client.Stack().RequestEnd(); });
    }
    recording::PlayedSocket& FileServer() { return world.network.Named("FileTransferSocket"); }
    void Gives(const Rows& buffers) {
        for (const std::string& buffer : buffers) Do([&] { FileServer().Sends(buffer); });
    }
    const Rows& Asked() { return FileServer().sent; }

    /// The texts of the boxes one after the other, each answered by OK.
    Rows Boxes() {
        Rows texts;
        for (std::string text = BoxText(); !text.empty(); text = BoxText()) {
            texts.push_back(text);
            Answers(BoxResult::Ok);
        }
        return texts;
    }
    bool IsLogged(const std::string& text) const { return world.LogText().find(text) != std::string::npos; }
    bool OffersOK() const { return Top() == dialog.Name() && dialog.OK.Visible() && !dialog.Cancel.Visible(); }
    /// The caption, the bar, and how often the client has slept.
    std::string Progress() const {
        const auto isPause = [](const recording::Event& event) {
            return event.name == "sleep" && std::get<std::int64_t>(event.fields[0].second) == 1500;
        };
        const auto sleeps = std::count_if(world.events.begin(), world.events.end(), isPause);
        return dialog.DPLabel.Caption() + ", " + std::to_string(dialog.DownloadProgressBar.Value()) + " %, " +
               std::to_string(sleeps);
    }

    DownloadProgress& dialog = forms.DownloadProgress;
};

} // namespace ombrin::test
