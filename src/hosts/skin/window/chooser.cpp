#include "hosts/skin/window/chooser.h"

#include "foundation/ini_files.h"
#include "hosts/desktop/board.h"
#include "hosts/desktop/look.h"
#include "hosts/desktop/own_texts.h"
#include "hosts/skin/screen.h"
#include "ui/text/localisation.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

namespace ombrin::skin {

using desktop::Own;
using desktop::Say;

namespace {

constexpr QSize kShown(620, 471); // of the picture, in the proportions of the view

/// The client's language, which this window speaks as well.
std::string Language(const Wardrobe& wardrobe) {
    PosixFiles files(wardrobe.Page());
    IniFiles inis(files, wardrobe.Home().WindowsDirectory());
    return wardrobe.Page().ToUtf8(inis.Read(Localisation::kFile, "CurrentLanguage", "Language"));
}

QString Title(const Wardrobe::Row& row) {
    const std::string& title = row.skin.title.empty() ? row.skin.name : row.skin.title;
    const QString shown = QString::fromStdString(title);
    return row.inUse ? Say(Own::SkinInUse).arg(shown) : shown;
}

/// Plain, whatever its maker wrote.
QString Description(const Skin& skin) {
    QStringList lines;
    for (const std::string& line : {skin.description, skin.author})
        if (!line.empty()) lines += QString::fromStdString(line);
    return desktop::Board::Tip(lines.join(QLatin1Char('\n')));
}

/// The last line, as Qt may have said something before.
QString Complaint(QProcess& painter) {
    const QString said = QString::fromUtf8(painter.readAllStandardError()).trimmed();
    return said.isEmpty() ? painter.errorString() : said.section(QLatin1Char('\n'), -1);
}

} // namespace

Chooser::Chooser(Wardrobe& wardrobe) : wardrobe(wardrobe) {
    desktop::SetOwnLanguage([language = Language(wardrobe)] { return language; });
    desktop::Look::Dress();
    setWindowTitle(Say(Own::SkinsOfOmbrin));
    use.setText(Say(Own::UseSkin));
    builtIn.setText(Say(Own::BuiltInLook));
    close.setText(Say(Own::Close));
    list.setAccessibleName(windowTitle());
    list.setMinimumWidth(200);
    picture.setFixedSize(kShown);
    picture.setAlignment(Qt::AlignCenter);
    picture.setWordWrap(true);
    said.setWordWrap(true);
    said.setTextFormat(Qt::PlainText);
    picture.setTextFormat(Qt::PlainText);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(&said, 1);
    for (QPushButton* button : {&use, &builtIn, &close}) buttons->addWidget(button);
    auto* whole = new QGridLayout(this);
    whole->addWidget(&list, 0, 0);
    whole->addWidget(&picture, 0, 1);
    whole->addLayout(buttons, 1, 0, 1, 2);

    connect(&list, &QListWidget::currentRowChanged, this, [this](int row) { LookAt(row); });
    connect(&painter, &QProcess::finished, this, [this] { ShowPicture(); });
    connect(&painter, &QProcess::errorOccurred, this, [this] { ShowPicture(); });
    connect(&use, &QPushButton::clicked, this,
            [this] { Change([this] { this->wardrobe.Use(rows.at(list.currentRow()).skin.name); }); });
    connect(&builtIn, &QPushButton::clicked, this, [this] { Change([this] { this->wardrobe.Remove(); }); });
    connect(&close, &QPushButton::clicked, this, [this] { accept(); });
    Fill();
}

Chooser::~Chooser() {
    painter.disconnect(this);
    StopPainting();
}

/// Asked first, so that it takes its folder away.
void Chooser::StopPainting() {
    constexpr int kPatience = 500; // ms
    if (painter.state() == QProcess::NotRunning) return;
    painter.terminate();
    if (painter.waitForFinished(kPatience)) return;
    painter.kill();
    painter.waitForFinished();
}

void Chooser::Fill() {
    const int before = list.currentRow();
    rows = wardrobe.Rows();
    int chosen = before;
    list.blockSignals(true);
    list.clear();
    for (const Wardrobe::Row& row : rows) {
        if (before < 0 && row.inUse) chosen = list.count();
        auto* item = new QListWidgetItem(Title(row), &list);
        item->setToolTip(Description(row.skin));
    }
    list.blockSignals(false);
    list.setCurrentRow(std::clamp(chosen, 0, list.count() - 1));
    if (rows.empty()) said.setText(Say(Own::NoSkins));
    if (rows.empty()) LookAt(-1);
}

void Chooser::LookAt(int row) {
    StopPainting();
    picture.clear();
    const bool usable = row >= 0 && rows.at(row).fault.empty();
    use.setEnabled(usable);
    if (row < 0) return;
    if (!usable) return picture.setText(QString::fromStdString(rows[row].fault));
    picture.setAccessibleName(Title(rows[row]));
    painter.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--home"), QString::fromStdString(wardrobe.Page().ToUtf8(wardrobe.Home().root)),
                   QStringLiteral("preview"), QStringLiteral("--out"), pictures.filePath(QStringLiteral("view.png")),
                   QStringLiteral("--scale"),
                   QString::number(std::clamp(devicePixelRatioF(), kLeastScale, kLargestScale)), QStringLiteral("--"),
                   QString::fromStdString(rows[row].skin.name)});
}

void Chooser::ShowPicture() {
    if (painter.exitStatus() != QProcess::NormalExit || painter.exitCode() != 0)
        return picture.setText(Complaint(painter));
    QPixmap shown(pictures.filePath(QStringLiteral("view.png")));
    const qreal dense = devicePixelRatioF();
    shown = shown.scaled(kShown * dense, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    shown.setDevicePixelRatio(dense);
    picture.setPixmap(shown);
}

void Chooser::Change(const std::function<void()>& change) {
    try {
        change();
        said.setText(Say(Own::AtNextStart));
    } catch (const std::exception& error) {
        said.setText(QString::fromUtf8(error.what()));
    }
    Fill();
}

} // namespace ombrin::skin
