// What the client and the module for its web banners know of each other. The module is a library of its own that is
// loaded when the first banner comes, as a browser's engine is large and most evenings need none.
#pragma once

#include <QString>
#include <QUrl>
#include <QWidget>
#include <functional>

namespace ombrin::banners {

/// Shows one page at a time, without frame, bars and menus.
class BannerView : public QWidget {
public:
    using QWidget::QWidget;
    /// A page of the web, or "about:blank". Another address shows nothing, nor does a page that does not come.
    virtual void Navigate(const QUrl& page) = 0;
};

/// Gets what a person has clicked that wants a window of its own: an address of the web, from a page's hand.
using OpenLink = std::function<void(const QUrl&)>;

/// A child of `place`, which owns it; nullptr where the engine cannot work on this machine, and `why` says so.
using MakeBannerView = BannerView* (*)(QWidget* place, OpenLink open, QString& why);

/// The module's one function. The number grows with each change of this file, so that no other module is taken for it.
inline constexpr const char* kMakeBannerView = "OmbrinMakeBannerView1";

} // namespace ombrin::banners
