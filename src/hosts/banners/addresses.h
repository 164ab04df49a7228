// Where a banner may lead its place, and what it may be made of.
#pragma once

#include <QUrl>

namespace ombrin::banners {

/// As the place's own page: the web, and nothing.
bool MayBePage(const QUrl& address);
/// As a part of it: a frame, a picture, a connection. Neither files of this machine nor the engine's own pages.
bool MayBePart(const QUrl& address);
/// Outside, in the person's own browser.
bool IsOfTheWeb(const QUrl& address);

} // namespace ombrin::banners
