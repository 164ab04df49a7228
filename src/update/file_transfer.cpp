#include "update/file_transfer.h"

#include "foundation/text.h"
#include "session/wire/client_message.h"
#include "update/file_names.h"

#include <algorithm>
#include <cmath>

namespace ombrin {

clsFileTransfer::clsFileTransfer(TransferDesk desk, std::optional<SumsCheck> check)
    : desk(desk), check(std::move(check)), m_frmProgress(desk.progress) {
    desk.TraceMessage("clsFileTransfer class initialized");
}

void clsFileTransfer::AddFile(const std::string& FileName, const std::string& LocalPath, std::int32_t FileSize,
                              std::uint32_t dwLowServerDateTime, std::uint32_t dwHighServerDateTime) {
    desk.trap(__func__, [&] {
        desk.TraceMessage(Join("AddFile() adding file ", FileName, " to the collection for download."));
        const clsFileInfo file{FileName, FileSize, TemporaryPath(LocalPath), dwLowServerDateTime, dwHighServerDateTime};
        const auto isIt = [&](const clsFileInfo& other) { return other.FileName == FileName; };
        if (std::any_of(m_colPendingFiles.begin(), m_colPendingFiles.end(), isIt))
            throw RuntimeError(ErrorNumber::DuplicateKey);
        m_colPendingFiles.push_back(file);
    });
}

void clsFileTransfer::ServerIP(const std::string& host) {
    m_sServerIP = host;
    m_FTSock->RemoteHost = host;
}

void clsFileTransfer::ServerPort(const std::string& port) {
    m_sServerPort = port;
    m_FTSock->RemotePort = ToInteger(port);
    m_FTSock->LocalPort = 0;
}

bool clsFileTransfer::TransferFiles() {
    return desk.trap(__func__, [&] {
        desk.TraceMessage(Join("TransferFiles() attempting to connect to the server for a file transfer ",
                               m_FTSock->RemoteHost, " ", std::to_string(m_FTSock->RemotePort)));
        m_iTotalFiles = static_cast<std::int16_t>(m_colPendingFiles.size());
        m_FTSock->Connect();
    });
}

void clsFileTransfer::OnSocket_Connect() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("OnSocket_Connect() event received, requesting first file buffer from server");
        m_frmProgress.Prepare();
        RequestNextFileFromServer();
        m_frmProgress.DPLabel.SetCaption(text::kDownloadingFile1.english);
        desk.language.SetFLLabel(m_frmProgress.DPLabel, text::kDownloadingFile1.key);
        m_frmProgress.DPLabel.SetCaption(Join(m_frmProgress.DPLabel.Caption(), " ", std::to_string(m_iTotalFiles)));
        m_iCurrentFileNumber = 1;
        CompleteEmptyFiles();
        ShowProgress();
        if (!m_frmProgress.Canceled) {
            DownloadComplete();
            return;
        }
        desk.TraceMessage("user canceled file transfer");
        m_bCanceled = true;
        DeleteTemporaryFiles();
        SendData(client_message::TransferGivenUp());
        TellOfCancel();
    });
}

/// The program's end under the dialog is a cancel that nobody can be told of.
void clsFileTransfer::ShowProgress() {
    if (m_frmProgress.Canceled) return; // before it could be shown
    try {
        m_frmProgress.ShowModal();
    } catch (const ProgramEnding&) {
        m_bCanceled = true;
        if (!m_bAllThere) DeleteTemporaryFiles();
        throw;
    }
}

void clsFileTransfer::OnSocket_Failed() {
    if (m_bCanceled) return;
    desk.trap(__func__, [&] {
        desk.TraceMessage("the connection for the file transfer does not come");
        m_bCanceled = true;
        desk.messages.DisplayMessage(text::kUpdateNoConnection);
        TellOfCancel();
    });
}

void clsFileTransfer::OnSocket_Close() {
    if (m_bCanceled || m_bAllThere) return;
    desk.TraceMessage("the connection for the file transfer is lost");
    m_frmProgress.Canceled = true;
    m_frmProgress.Hide();
}

void clsFileTransfer::TellOfCancel() {
    desk.messages.DisplayMessage(text::kDownloadCanceled);
    DownloadCanceled();
}

void clsFileTransfer::SendData(std::string_view Data) {
    if (m_FTSock->IsConnected())
        m_FTSock->SendData(Data);
    else
        desk.messages.DisplayMessage(text::kError18);
}

void clsFileTransfer::On_DataArrival(std::size_t) {
    // A cancel may wait to be acted on, below boxes that stand over the dialog.
    if (m_bCanceled || m_frmProgress.Canceled) return;
    desk.trap(__func__, [&] {
        const std::string buffer = m_FTSock->GetData();
        if (buffer.empty()) return;
        if (m_sCurrentFileName.empty()) {
            desk.TraceMessage(Join(std::to_string(buffer.size()), " bytes that nobody asked for are thrown away"));
            return;
        }
        using enum LocalFiles::WriteMode;
        WriteToFile(desk.files, desk.trap.log, m_sCurrentLocalPath, buffer, m_bFirstBufferWritten ? Append : Create);
        m_bFirstBufferWritten = true;
        m_lBytesRemaining -= static_cast<std::int64_t>(buffer.size());
        if (m_lBytesRemaining > 0) {
            ShowBytes();
            SendData(client_message::FileReceived());
            return;
        }
        CompleteFile();
        RequestNextFileFromServer();
        CompleteEmptyFiles();
        if (m_iCurrentFileNumber >= 2 && !m_frmProgress.Canceled) desk.processes.Sleep(kPause);
    });
}

void clsFileTransfer::CompleteFile() {
    desk.files.SetModifiedTime(m_sCurrentLocalPath, m_ftServerTime);
    ShowBytes();
    desk.TraceMessage("File downloaded successfully.");
}

/// No byte comes of them, so each is made and done as soon as it was asked for.
void clsFileTransfer::CompleteEmptyFiles() {
    while (!m_sCurrentFileName.empty() && m_lFileSize == 0 && !m_frmProgress.Canceled) {
        using enum LocalFiles::WriteMode;
        WriteToFile(desk.files, desk.trap.log, m_sCurrentLocalPath, "", m_bFirstBufferWritten ? Append : Create);
        m_bFirstBufferWritten = true;
        CompleteFile();
        RequestNextFileFromServer();
    }
}

/// Rounded to the nearest number, from the middle to the even one.
void clsFileTransfer::ShowBytes() {
    const double part = m_lFileSize == 0 ? 1.0 : static_cast<double>(m_lFileSize - m_lBytesRemaining) / m_lFileSize;
    m_frmProgress.DownloadProgressBar.SetValue(static_cast<int>(std::lrint(std::min(part, 1.0) * 100)));
}

void clsFileTransfer::RequestNextFileFromServer() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("RequestNextFileFromServer() called");
        m_sCurrentFileName.clear();
        if (m_colPendingFiles.empty()) return FinishDownload();
        const clsFileInfo file = m_colPendingFiles.front();
        m_colPendingFiles.pop_front();
        Request(file);
    });
}

void clsFileTransfer::Request(const clsFileInfo& file) {
    m_sCurrentFileName = file.FileName;
    m_sCurrentLocalPath = file.LocalPathFIlename;
    m_lBytesRemaining = m_lFileSize = file.FileSize;
    m_ftServerTime = file.ServerTime();
    desk.TraceMessage(
        Join("requesting file ", m_sCurrentFileName, " from server.  File size: ", std::to_string(m_lFileSize)));
    ++m_iCurrentFileNumber;
    Label& label = m_frmProgress.DPLabel;
    label.SetCaption(text::kDownloadingFile.english);
    desk.language.SetFLLabel(label, text::kDownloadingFile.key);
    label.SetCaption(Join(label.Caption(), " ", std::to_string(m_iCurrentFileNumber), " ",
                          desk.language.TranslateWord(text::kOf.key, text::kOf.english), " ",
                          std::to_string(m_iTotalFiles)));
    // Known as requested before anything can fail, so that a cancel finds what was written of it.
    m_colRequestedFiles.push_back(file);
    SendData(client_message::RequestFile(m_sCurrentFileName));
}

void clsFileTransfer::FinishDownload() {
    if (m_frmProgress.Canceled) return; // under a box that stood here
    desk.TraceMessage("download complete, all files transferred from server");
    if (!IsAsSigned()) {
        m_frmProgress.Canceled = true;
        m_frmProgress.Hide();
        return;
    }
    m_bAllThere = true;
    CopyTemporaryFiles();
    m_frmProgress.DPLabel.SetCaption(text::kDownloadComplete.english);
    desk.language.SetFLLabel(m_frmProgress.DPLabel, text::kDownloadComplete.key);
    m_frmProgress.OfferOK();
}

} // namespace ombrin
