// Pictures from files.
#pragma once

#include <memory>
#include <string>

namespace ombrin {

/// A file's picture, ready to be shown; what is behind it is the host's.
class LoadedPicture {
public:
    explicit LoadedPicture(std::string path) : path(std::move(path)) {}
    virtual ~LoadedPicture() = default;
    LoadedPicture(const LoadedPicture&) = delete;
    LoadedPicture& operator=(const LoadedPicture&) = delete;

    const std::string& Path() const { return path; }

private:
    std::string path;
};

class Pictures {
public:
    virtual ~Pictures() = default;
    /// "/" and "\" both separate. Raises 53 and 76 for what is not there, 75 and 57 for what cannot be read, 481 for
    /// what is no picture or too large to be shown.
    virtual std::shared_ptr<const LoadedPicture> LoadPicture(const std::string& path) = 0;
};

} // namespace ombrin
