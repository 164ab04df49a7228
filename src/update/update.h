// Keeping the client's own files current: the check of the server's list, the download, and the end of the client that
// every download leads to.
#pragma once

#include "lobby/desk.h"
#include "platform/alarms.h"
#include "update/directories.h"
#include "update/file_list.h"
#include "update/file_transfer.h"

#include <functional>
#include <memory>

namespace ombrin {

struct UpdateServices {
    Network& network;
    Alarms& alarms;
    LocalFiles& files;
    Components& components;
    Integrity& integrity;
    Processes& processes;
    DownloadProgress& progress;
    Places places;
    std::function<void()> closeClient;
};

class Update {
public:
    /// An update server that has not answered until then is given up.
    static constexpr Milliseconds kConnectLimit{30'000};

    Update(Desk desk, UpdateServices services);
    ~Update() { services.alarms.Cancel(patience); }
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

    /// Once, when the control is shown.
    void FindDirectories() { directories = UpdateDirectories::Of(services.places, desk.settings); }
    /// The list: `<host>;<port>;` and `<name>;<size>;<directory>;<version>;` a file. Waits for the user's answer.
    void GetFilesFromServer(std::string_view Buffer);

private:
    using Transfer = std::shared_ptr<clsFileTransfer>;

    Transfer MakeTransfer(std::optional<SumsCheck> check);
    void QueueIfOlder(clsFileTransfer& transfer, const ListedFile& file);
    std::string LocalVersion(const ListedFile& file);
    std::optional<SumsCheck> MakeCheck(FileList& list);
    std::optional<RefusedFile> WhyNotToStart(const Transfer& transfer, const std::optional<SumsCheck>& check);
    std::optional<RefusedFile> FirstWithoutRoom(const clsFileTransfer& transfer) const;
    void Offer(const FileList& list, const Transfer& transfer);
    bool IsReplaced(const Transfer& transfer) const;
    void Start(const FileList& list, const Transfer& transfer);

    void FileTransferSocket_Connect();
    void FileTransferSocket_DataArrival(std::size_t bytesTotal);
    void FileTransferSocket_Close();
    void FileTransferSocket_Failed();
    void clsFT_DownloadComplete();
    void StartPatcher();
    bool IsThere(const std::string& file) const;
    void clsFT_DownloadCanceled();

    Desk desk;
    UpdateServices services;
    UpdateDirectories directories;
    std::unique_ptr<Socket> FileTransferSocket;
    Transfer clsFT;
    bool begun = false; ///< a download, which has no return to the lobby
    Alarms::Id patience = Alarms::kNone;
};

} // namespace ombrin
