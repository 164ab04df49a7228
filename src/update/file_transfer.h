// One download: it fetches the files that it was given one after the other, a buffer at a time, under temporary names.
// Events of the socket, the dialog and its boxes run nested in one another on one thread.
#pragma once

#include "platform/components.h"
#include "platform/network.h"
#include "platform/processes.h"
#include "ui/text/messages.h"
#include "update/download_progress.h"
#include "update/sums.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace ombrin {

/// What a transfer works with; everything outlives it.
struct TransferDesk {
    Trap& trap;
    Messages& messages;
    Localisation& language;
    LocalFiles& files;
    Components& components;
    Processes& processes;
    DownloadProgress& progress;

    void TraceMessage(std::string_view message) const { trap.log.TraceMessage(message); }
};

class clsFileTransfer {
public:
    /// Between two files and after the last of several; a blocking wait.
    static constexpr long kPause = 1500; ///< milliseconds

    /// With `check` nothing is put in place that is not what was signed.
    clsFileTransfer(TransferDesk desk, std::optional<SumsCheck> check);

    /// `LocalPath` is the final one. What cannot be queued (a name without ".", one that is queued already) is logged.
    void AddFile(const std::string& FileName, const std::string& LocalPath, std::int32_t FileSize,
                 std::uint32_t dwLowServerDateTime, std::uint32_t dwHighServerDateTime);
    /// Asks for the connection and returns; false when that fails at once.
    bool TransferFiles();
    /// Does not return until the dialog is closed and one of the two events was raised.
    void OnSocket_Connect();
    void On_DataArrival(std::size_t bytesTotal);
    /// Without a connection the user is told, and nothing is sent.
    void SendData(std::string_view Data);
    std::int32_t GetNumberOfFilesInClass() const { return static_cast<std::int32_t>(m_colPendingFiles.size()); }

    // In this order: the two others set the socket's fields.
    void sckFileTransferSocket(Socket& socket) { m_FTSock = &socket; }
    void ServerIP(const std::string& host);
    void ServerPort(const std::string& port);

    std::function<void()> DownloadComplete;
    std::function<void()> DownloadCanceled;

    /// The connection does not come: ends where a cancel ends, without a dialog to close.
    void OnSocket_Failed();
    /// The connection is gone: a cancel, unless everything had come.
    void OnSocket_Close();

    const std::deque<clsFileInfo>& Pending() const { return m_colPendingFiles; }

private:
    void RequestNextFileFromServer();
    void CopyTemporaryFiles();
    void DeleteTemporaryFiles();

    void Request(const clsFileInfo& file);
    void CompleteFile();
    void CompleteEmptyFiles();
    void FinishDownload();
    void ShowProgress();
    void ShowBytes();
    bool IsAsSigned();
    void PutInPlace(const clsFileInfo& file);
    void TellOfCancel();

    TransferDesk desk;
    std::optional<SumsCheck> check;
    std::string m_sServerIP, m_sServerPort;
    std::deque<clsFileInfo> m_colPendingFiles, m_colRequestedFiles; ///< by FileName, in the order of insertion
    std::string m_sCurrentFileName, m_sCurrentLocalPath;
    bool m_bFirstBufferWritten = false; ///< of the whole transfer
    std::int64_t m_lBytesRemaining = 0; ///< below 0 when more has come than was declared
    DownloadProgress& m_frmProgress;
    std::int32_t m_lFileSize = 0;
    std::int16_t m_iCurrentFileNumber = 0, m_iTotalFiles = 0;
    bool m_bCanceled = false;
    bool m_bAllThere = false; ///< no file is due any more: there is nothing to cancel
    std::uint64_t m_ftServerTime = 0;
    Socket* m_FTSock = nullptr;
};

} // namespace ombrin
