#include "hosts/banners/addresses.h"

#include <algorithm>
#include <iterator>

namespace ombrin::banners {

namespace {

constexpr const char* kPartSchemes[] = {"about", "blob", "data", "http", "https", "ws", "wss"};

} // namespace

bool IsOfTheWeb(const QUrl& address) {
    const QString scheme = address.scheme();
    return (scheme == QLatin1String("http") || scheme == QLatin1String("https")) && !address.host().isEmpty();
}

bool MayBePage(const QUrl& address) { return IsOfTheWeb(address) || address == QUrl(QStringLiteral("about:blank")); }

bool MayBePart(const QUrl& address) {
    const QString scheme = address.scheme();
    return std::any_of(std::begin(kPartSchemes), std::end(kPartSchemes),
                       [&](const char* allowed) { return scheme == QLatin1String(allowed); });
}

} // namespace ombrin::banners
