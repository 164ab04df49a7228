#include "hosts/banners/guarded_page.h"

#include "hosts/banners/addresses.h"

#include <QAuthenticator>
#include <QWebEngineCertificateError>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineSettings>
#include <utility>

namespace ombrin::banners {

namespace {

using Setting = QWebEngineSettings;

constexpr struct {
    Setting::WebAttribute what;
    bool on;
} kSettings[] = {
    {Setting::JavascriptEnabled, true},
    {Setting::LocalStorageEnabled, true}, // in memory: the profile keeps nothing
    {Setting::PlaybackRequiresUserGesture, true},
    {Setting::WebRTCPublicInterfacesOnly, true}, // the user's addresses at home are nobody's business

    {Setting::JavascriptCanOpenWindows, false},
    {Setting::JavascriptCanAccessClipboard, false},
    {Setting::JavascriptCanPaste, false},
    {Setting::LocalContentCanAccessRemoteUrls, false},
    {Setting::LocalContentCanAccessFileUrls, false},
    {Setting::AllowRunningInsecureContent, false},
    {Setting::AllowGeolocationOnInsecureOrigins, false},
    {Setting::AllowWindowActivationFromJavaScript, false},
    {Setting::FocusOnNavigationEnabled, false},
    {Setting::LinksIncludedInFocusChain, false},
    {Setting::FullScreenSupportEnabled, false},
    {Setting::ScreenCaptureEnabled, false},
    {Setting::PluginsEnabled, false},
    {Setting::PdfViewerEnabled, false},
    {Setting::WebGLEnabled, false},
    {Setting::NavigateOnDropEnabled, false},
    {Setting::HyperlinkAuditingEnabled, false},
    {Setting::DnsPrefetchEnabled, false},
    {Setting::AutoLoadIconsForPage, false},
    {Setting::ErrorPageEnabled, false},
    {Setting::ShowScrollBars, false},
};

} // namespace

GuardedPage::GuardedPage(QWebEngineProfile& profile, OpenLink open)
    : QWebEnginePage(&profile, nullptr), open(std::move(open)) {
    Restrict();
    RefuseRequests();
    setAudioMuted(true);
    connect(this, &QWebEnginePage::newWindowRequested, this, [this](const QWebEngineNewWindowRequest& request) {
        if (request.isUserInitiated() && IsOfTheWeb(request.requestedUrl())) this->open(request.requestedUrl());
    });
}

void GuardedPage::Restrict() {
    for (const auto& row : kSettings) settings()->setAttribute(row.what, row.on);
    // Otherwise a click could start any program that the desktop knows an address for.
    settings()->setUnknownUrlSchemePolicy(Setting::DisallowUnknownUrlSchemes);
}

/// Each with the engine's own way to say no; what it asks for a name and a password gets none.
void GuardedPage::RefuseRequests() {
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl& origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::fullScreenRequested, this, [](QWebEngineFullScreenRequest r) { r.reject(); });
    connect(this, &QWebEnginePage::quotaRequested, this, [](QWebEngineQuotaRequest r) { r.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest r) { r.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest r) { r.reject(); });
    connect(this, &QWebEnginePage::certificateError, this, [](QWebEngineCertificateError e) { e.rejectCertificate(); });
    const auto stay = [](QAuthenticator& asked) { asked = QAuthenticator(); };
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [stay](const QUrl&, QAuthenticator* asked) { stay(*asked); });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [stay](const QUrl&, QAuthenticator* asked, const QString&) { stay(*asked); });
}

bool GuardedPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
    return isMainFrame ? MayBePage(url) : MayBePart(url);
}

} // namespace ombrin::banners
