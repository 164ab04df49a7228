// Pictures that can be painted.
#pragma once

#include "foundation/code_page.h"
#include "platform/pictures.h"

#include <QPixmap>

namespace ombrin::desktop {

class QtPicture : public LoadedPicture {
public:
    QtPicture(std::string path, QPixmap pixmap) : LoadedPicture(std::move(path)), pixmap(std::move(pixmap)) {}
    const QPixmap& Pixmap() const { return pixmap; }

private:
    QPixmap pixmap;
};

/// Whatever Qt reads, found out by the content. Where the screen is fine, a NAME@2x beside the file is taken.
class QtPictures : public Pictures {
public:
    static constexpr int kLongestSide = 8192; ///< pixels

    explicit QtPictures(const CodePage& page) : page(page) {}
    std::shared_ptr<const LoadedPicture> LoadPicture(const std::string& path) override;

private:
    const CodePage& page;
};

} // namespace ombrin::desktop
