// Web banners by the module that has a browser's engine.
#pragma once

#include "foundation/log.h"
#include "hosts/banners/banner_view.h"
#include "hosts/desktop/board.h"
#include "platform/desktop.h"

#include <QPointer>
#include <QStringList>

namespace ombrin::desktop {

/// Loads the module when the first page of the web is to be shown. Where there is none, or its engine cannot work, the
/// place stays empty and the log says once why.
class BannerBrowser : public Browser {
public:
    /// `modules` are the files that the module may be, the first that is there counts. What a person clicks that wants
    /// a window of its own goes to `opener`.
    BannerBrowser(const CodePage& page, TargetOpener& opener, QStringList modules = UsualModules())
        : page(page), opener(opener), modules(std::move(modules)) {}

    /// Where the banners are shown. Before that, nothing is.
    void Attach(const Board& shownOn, const WebBrowser& control, Log& failures) {
        board = &shownOn;
        place = &control;
        log = &failures;
    }

    void Navigate(std::string_view address) override;

    static QStringList UsualModules();

private:
    void Load();
    banners::BannerView* MakeView(QString& why);
    void OpenOutside(const QUrl& link);

    const CodePage& page;
    TargetOpener& opener;
    QStringList modules;
    const Board* board = nullptr;
    const WebBrowser* place = nullptr;
    Log* log = nullptr;
    bool tried = false;
    QPointer<banners::BannerView> view; ///< goes with the place
};

} // namespace ombrin::desktop
