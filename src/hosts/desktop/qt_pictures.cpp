#include "hosts/desktop/qt_pictures.h"

#include "foundation/runtime_error.h"
#include "platform/posix/file_source.h"
#include "platform/posix/posix_files.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

namespace ombrin::desktop {

namespace {

QPixmap Read(const QString& file) {
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const bool tooLarge = size.width() > QtPictures::kLongestSide || size.height() > QtPictures::kLongestSide;
    return tooLarge ? QPixmap() : QPixmap::fromImageReader(&reader);
}

/// Of twice the size, for the same place.
QPixmap ReadFine(const QFileInfo& file) {
    const QString name = QStringLiteral("%1/%2@2x.%3").arg(file.path(), file.completeBaseName(), file.suffix());
    QPixmap fine = QFileInfo::exists(name) ? Read(name) : QPixmap();
    fine.setDevicePixelRatio(2);
    return fine;
}

} // namespace

std::shared_ptr<const LoadedPicture> QtPictures::LoadPicture(const std::string& path) {
    const std::string native = PosixFiles(page).Native(path);
    const FileSource there(native); // raises why it is not
    const QFileInfo file(QString::fromStdString(native));
    QPixmap picture = Read(file.filePath());
    if (picture.isNull()) throw RuntimeError(ErrorNumber::InvalidPicture);
    if (qGuiApp->devicePixelRatio() > 1)
        if (QPixmap fine = ReadFine(file); !fine.isNull()) picture = std::move(fine);
    return std::make_shared<QtPicture>(path, std::move(picture));
}

} // namespace ombrin::desktop
