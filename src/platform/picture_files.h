// Pictures for a host that shows none: a file is known as one by its first bytes.
#pragma once

#include "platform/local_files.h"
#include "platform/pictures.h"

#include <string_view>

namespace ombrin {

class PictureFiles : public Pictures {
public:
    explicit PictureFiles(const LocalFiles& files) : files(files) {}
    /// By how its bytes begin.
    static bool IsPicture(std::string_view start);
    std::shared_ptr<const LoadedPicture> LoadPicture(const std::string& path) override;

private:
    const LocalFiles& files;
};

} // namespace ombrin
