// The end of a transfer: from the temporary names to the final ones.
#include "update/file_names.h"
#include "update/file_transfer.h"
#include "update/tell_refused.h"

namespace ombrin {

bool clsFileTransfer::IsAsSigned() {
    if (!check) return true;
    const auto refused = check->FirstRefused(m_colRequestedFiles);
    if (refused) TellRefused(desk.messages, desk.trap.log, text::kUpdateNotAsSigned, *refused);
    return !refused;
}

/// What cannot be put in place ends it: the files before it are, it and those behind it are not. The user is told only
/// where he has asked for certainty, by a key.
void clsFileTransfer::CopyTemporaryFiles() {
    desk.TraceMessage("CopyTemporaryFiles() called");
    const clsFileInfo* current = nullptr;
    const auto copyAll = [&] {
        for (const clsFileInfo& file : m_colRequestedFiles) {
            current = &file;
            PutInPlace(file);
        }
    };
    if (desk.trap.Quietly(__func__, copyAll) || !check || current == nullptr) return;
    TellRefused(desk.messages, desk.trap.log, text::kUpdateNotAllInPlace, {current->FileName, text::kUpdateNoCopy});
}

void clsFileTransfer::PutInPlace(const clsFileInfo& file) {
    const std::string path = FinalPath(file.LocalPathFIlename);
    if (InUse(NameOfPath(path)) != nullptr) return; // the patcher's matter
    desk.files.Copy(file.LocalPathFIlename, path);
    if (RegistersItself(path)) RegisterServer(desk.components, desk.trap, path, true);
    desk.files.Delete(file.LocalPathFIlename);
}

void clsFileTransfer::DeleteTemporaryFiles() {
    desk.TraceMessage("DeleteTemporaryFiles() called");
    for (const clsFileInfo& file : m_colRequestedFiles) desk.files.Delete(file.LocalPathFIlename);
}

} // namespace ombrin
