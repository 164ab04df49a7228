#include "hosts/desktop/qt_services.h"

#include "platform/sound_volume.h"

#include <QAudio>
#include <QAudioDevice>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMediaDevices>
#include <QRect>
#include <QSoundEffect>
#include <QUrl>
#include <algorithm>

namespace ombrin::desktop {

namespace {

constexpr Milliseconds kLongestSound{5000}, kSlice{20};

QString ToQt(const CodePage& page, std::string_view bytes) { return QString::fromUtf8(page.ToUtf8(bytes)); }

} // namespace

void QtSound::Play(std::string_view name) {
    const int volume = SoundVolume(settings);
    if (name.empty() || volume == 0) return;
    const std::vector<std::string> files = SoundFiles(folders, page.ToUtf8(name));
    const auto file = std::find_if(files.begin(), files.end(), [](const std::string& candidate) {
        return QFileInfo::exists(QString::fromStdString(candidate));
    });
    // Without an output a sound never comes to its end, and would hold the client for as long as the longest.
    if (file == files.end() || QMediaDevices::audioOutputs().isEmpty()) return;
    QSoundEffect effect;
    effect.setSource(QUrl::fromLocalFile(QString::fromStdString(*file)));
    const float asHeard = static_cast<float>(volume) / kFullVolume;
    effect.setVolume(QAudio::convertVolume(asHeard, QAudio::LogarithmicVolumeScale, QAudio::LinearVolumeScale));
    effect.play();
    for (Milliseconds waited{0}; waited < kLongestSound; waited += kSlice) {
        const bool loading = effect.status() == QSoundEffect::Loading;
        if (effect.status() == QSoundEffect::Error || (!loading && !effect.isPlaying())) return;
        waiter.Block(kSlice);
    }
    effect.stop();
}

void QtClipboard::SetText(std::string_view text) { QGuiApplication::clipboard()->setText(ToQt(page, text)); }

int QtOpener::Open(std::string_view target, std::string_view workingDirectory) {
    constexpr int kNotFound = 2, kOpened = 33;
    const QString text = ToQt(page, target).trimmed();
    if (text.isEmpty()) return kNotFound;
    const QUrl url = QUrl::fromUserInput(text, ToQt(page, workingDirectory), QUrl::AssumeLocalFile);
    if (!url.isValid() || (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile()))) return kNotFound;
    return QDesktopServices::openUrl(url) ? kOpened : kNotFound;
}

int QtMeasure::LineCount(std::string_view text, int width) const {
    const QRect bounds = metrics.boundingRect(QRect(0, 0, std::max(1, width), 1 << 20),
                                              Qt::TextWordWrap | Qt::TextWrapAnywhere, ToQt(page, text));
    return std::max(1, (bounds.height() + metrics.height() / 2) / std::max(1, metrics.lineSpacing()));
}

} // namespace ombrin::desktop
