// What an image or a button shows.
#pragma once

#include "platform/pictures.h"

namespace ombrin {

/// Nothing, what the control was built with, or a file's picture.
class Picture {
public:
    Picture() = default;
    explicit Picture(std::shared_ptr<const LoadedPicture> loaded) : loaded(std::move(loaded)) {}
    static Picture BuiltIn() {
        Picture picture;
        picture.builtIn = true;
        return picture;
    }

    bool IsBuiltIn() const { return builtIn; }
    /// nullptr where it comes from no file.
    const LoadedPicture* File() const { return loaded.get(); }
    bool operator==(const Picture&) const = default;

private:
    bool builtIn = false;
    std::shared_ptr<const LoadedPicture> loaded;
};

/// The button itself shows the one that fits its state.
struct ButtonPictures {
    Picture up, down, disabled;

    static ButtonPictures BuiltIn() { return {Picture::BuiltIn(), Picture::BuiltIn(), Picture::BuiltIn()}; }
    bool operator==(const ButtonPictures&) const = default;
};

} // namespace ombrin
