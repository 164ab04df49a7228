// The engine's view in the place of the banners.
#pragma once

#include "hosts/banners/guarded_page.h"

#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

namespace ombrin::banners {

/// The second door behind the page's own: it sees whatever a page asks for.
class LocalFilesRefused : public QWebEngineUrlRequestInterceptor {
public:
    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

class WebBanner : public BannerView {
public:
    WebBanner(QWidget* place, OpenLink open);
    void Navigate(const QUrl& address) override;

protected:
    void resizeEvent(QResizeEvent*) override { view.resize(size()); }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowPage(bool came);
    void Guard(QWebEngineProfile& strangers);

    LocalFilesRefused localFiles;
    QWebEngineProfile profile; ///< without a name: nothing of it reaches the disk
    GuardedPage page;          ///< goes before its profile
    QWebEngineView view{this};
};

} // namespace ombrin::banners
