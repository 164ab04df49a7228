// Whole files on a POSIX file system.
#pragma once

#include "foundation/code_page.h"
#include "platform/local_files.h"

namespace ombrin {

class PosixLocalFiles : public LocalFiles {
public:
    /// Names are converted from the code page to the UTF-8 of the file system.
    explicit PosixLocalFiles(const CodePage& page) : page(page) {}

    bool Write(const std::string& path, std::string_view bytes, WriteMode mode) override;
    void Copy(const std::string& from, const std::string& to) override;
    bool Delete(const std::string& path) override;
    bool SetModifiedTime(const std::string& path, std::uint64_t time) override;
    std::optional<Space> FreeSpace(const std::string& folder) const override;
    std::unique_ptr<ByteSource> Open(const std::string& path) const override;
    std::string GetFileVersion(const std::string& path) const override;

private:
    std::string Native(const std::string& path) const;

    const CodePage& page;
};

} // namespace ombrin
