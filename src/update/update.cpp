#include "update/update.h"

#include "foundation/text.h"
#include "update/file_names.h"
#include "update/tell_refused.h"

#include <algorithm>
#include <map>

namespace ombrin {

Update::Update(Desk desk, UpdateServices given)
    : desk(desk), services(std::move(given)),
      FileTransferSocket(services.network.MakeSocket(
          "FileTransferSocket",
          {[this] { FileTransferSocket_Connect(); },
           [this](std::size_t bytes) { FileTransferSocket_DataArrival(bytes); }, [this] { FileTransferSocket_Close(); },
           [this](ConnectFailure) { FileTransferSocket_Failed(); }})) {}

void Update::GetFilesFromServer(std::string_view Buffer) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Checking to see if user hs any files that need to be downloaded based on version");
        if (begun) { // its temporary files must not be touched
            desk.TraceMessage("a download has begun, this list is not looked at");
            return;
        }
        FileList list = CutFileList(Buffer, directories);
        if (list.files.empty()) return;
        if (const auto refused = FirstRefused(list, directories))
            return TellRefused(desk.messages, desk.trap.log, text::kUpdateNotUsable, *refused);
        const std::optional<SumsCheck> check = MakeCheck(list);
        const Transfer transfer = MakeTransfer(check);
        clsFT = transfer; // at once: queueing may wait under a box, where another list can come
        for (const ListedFile& file : list.files) {
            QueueIfOlder(*transfer, file);
            if (IsReplaced(transfer)) return;
        }
        if (transfer->GetNumberOfFilesInClass() == 0) return;
        if (const auto refused = WhyNotToStart(transfer, check))
            return TellRefused(desk.messages, desk.trap.log, text::kUpdateNotUsable, *refused);
        Offer(list, transfer);
    });
}

/// The sums, where the user has asked for them by a key, come first.
std::optional<SumsCheck> Update::MakeCheck(FileList& list) {
    const std::string key = desk.settings.GetSetting("Settings", "UpdateKey");
    if (key.empty()) return std::nullopt;
    SumsCheck check(services.files, services.integrity, directories, key);
    const auto sums = std::stable_partition(list.files.begin(), list.files.end(), [&](const ListedFile& file) {
        return file.LocalPath == check.LocalPath();
    });
    if (sums != list.files.begin()) check.Expect(list.files.front().ServerVersion);
    return check;
}

Update::Transfer Update::MakeTransfer(std::optional<SumsCheck> check) {
    auto transfer =
        std::make_shared<clsFileTransfer>(TransferDesk{desk.trap, desk.messages, desk.language, services.files,
                                                       services.components, services.processes, services.progress},
                                          std::move(check));
    transfer->DownloadComplete = [this] { clsFT_DownloadComplete(); };
    transfer->DownloadCanceled = [this] { clsFT_DownloadCanceled(); };
    return transfer;
}

void Update::QueueIfOlder(clsFileTransfer& transfer, const ListedFile& file) {
    desk.TraceMessage(Join("FileName: ", file.FileName));
    const std::string version = LocalVersion(file);
    if (version.empty()) {
        desk.TraceMessage(Join("could not obtain local file version for: ", file.LocalPath));
    } else {
        desk.TraceMessage(Join("Lc: ", file.LocalPath, " ver: ", version, "   server ver: ", file.ServerVersion));
        if (!CompareFileVersions(version, file.ServerVersion)) return;
    }
    transfer.AddFile(file.FileName, file.LocalPath, file.FileSize, 0, 0);
}

/// Of a file that the client holds open by way of a copy; raises what copying raises.
std::string Update::LocalVersion(const ListedFile& file) {
    const FileInUse* inUse = InUse(file.FileName);
    if (inUse == nullptr) return services.files.GetFileVersion(file.LocalPath);
    const std::string copy = Join(directories.*inUse->copyDirectory, inUse->copy);
    services.files.Copy(file.LocalPath, copy);
    std::string version = services.files.GetFileVersion(copy);
    services.files.Delete(copy);
    return version;
}

std::optional<RefusedFile> Update::WhyNotToStart(const Transfer& transfer, const std::optional<SumsCheck>& check) {
    if (check && !check->HasKey()) return RefusedFile{std::string(Sums::kFileName), text::kUpdateBadKey};
    if (check && directories.client.empty()) // where the sums would be
        return RefusedFile{std::string(Sums::kFileName), text::kUpdateNoClientDirectory};
    if (check && !check->HasSums(transfer->Pending()))
        return RefusedFile{std::string(Sums::kFileName), text::kUpdateNoSums};
    return FirstWithoutRoom(*transfer);
}

/// On its file system each file has to fit beside all others, and beside the copy that is made of it at the end.
std::optional<RefusedFile> Update::FirstWithoutRoom(const clsFileTransfer& transfer) const {
    struct Need {
        std::uint64_t files = 0, copy = 0;
    };
    std::map<std::uint64_t, Need> needs;
    for (const clsFileInfo& file : transfer.Pending()) {
        const auto space = services.files.FreeSpace(std::string(DirectoryOfPath(file.LocalPathFIlename)));
        if (!space) continue; // a directory that is not there: nothing will be written
        const auto size = static_cast<std::uint64_t>(file.FileSize);
        Need& need = needs[space->fileSystem];
        need.files += size;
        if (InUse(file.FileName) == nullptr) need.copy = std::max(need.copy, size);
        if (need.files + need.copy > space->bytes) return RefusedFile{file.FileName, text::kUpdateNoSpace};
    }
    return std::nullopt;
}

void Update::Offer(const FileList& list, const Transfer& transfer) {
    const BoxResult answer = desk.messages.DisplayMessage(text::kDownloadRequired, BoxButtons::OkCancel);
    if (IsReplaced(transfer)) return;
    if (answer == BoxResult::Ok) {
        desk.TraceMessage("there are files to download and the user chose to download them");
        Start(list, transfer);
        return;
    }
    desk.TraceMessage("there are files to download and the user chose NOT to download them");
    clsFT.reset();
    services.closeClient();
}

/// By a list that came while a box stood, and which has its own question.
bool Update::IsReplaced(const Transfer& transfer) const {
    if (clsFT == transfer) return false;
    desk.TraceMessage("this list has been replaced by another one");
    return true;
}

void Update::Start(const FileList& list, const Transfer& transfer) {
    transfer->sckFileTransferSocket(*FileTransferSocket);
    transfer->ServerIP(list.ServerIP);
    transfer->ServerPort(list.ServerPort);
    begun = true;
    desk.view.DisableForGood();
    if (!transfer->TransferFiles()) return transfer->OnSocket_Failed();
    patience = services.alarms.At(services.alarms.Now() + kConnectLimit, [this] {
        FileTransferSocket->Close();
        FileTransferSocket_Failed();
    });
}

// The transfer has to outlive the routine that raises one of its events, in which it is given up.

void Update::FileTransferSocket_Connect() {
    services.alarms.Cancel(patience);
    if (const Transfer held = clsFT) held->OnSocket_Connect();
}

void Update::FileTransferSocket_DataArrival(std::size_t bytesTotal) {
    if (const Transfer held = clsFT) held->On_DataArrival(bytesTotal);
}

void Update::FileTransferSocket_Close() {
    if (const Transfer held = clsFT) held->OnSocket_Close();
}

void Update::FileTransferSocket_Failed() {
    services.alarms.Cancel(patience);
    if (const Transfer held = clsFT) held->OnSocket_Failed();
}

void Update::clsFT_DownloadComplete() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("clsFT_DownloadComplete() event received from the file transfer class");
        clsFT.reset();
        StartPatcher();
        services.closeClient();
    });
}

/// The one in the system directory, which may have come with this update; where there is none, the one that the
/// system's packages have installed.
void Update::StartPatcher() {
    const auto starts = [&](const std::string& program) {
        return services.processes.Shell({program, program.size()}) != Processes::kNone;
    };
    const std::string patcher = directories.system + "OBPatch.exe", &installed = services.places.patcher;
    if (starts(patcher) || (!installed.empty() && !IsThere(patcher) && starts(installed))) return;
    throw RuntimeError(ErrorNumber::FileNotFound, Join(patcher, " cannot be started"));
}

bool Update::IsThere(const std::string& file) const {
    try {
        services.files.Open(file);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void Update::clsFT_DownloadCanceled() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("clsFT_DownloadCanceled() event received from the file transfer class");
        clsFT.reset();
        services.closeClient();
    });
}

} // namespace ombrin
