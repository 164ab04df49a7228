// A page from a stranger: it may draw in its place and run its scripts, and nothing else.
#pragma once

#include "hosts/banners/banner_view.h"

#include <QWebEnginePage>

namespace ombrin::banners {

class GuardedPage : public QWebEnginePage {
public:
    GuardedPage(QWebEngineProfile& profile, OpenLink open);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
    // Each of these would wait in a window of its own.
    QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }
    void javaScriptAlert(const QUrl&, const QString&) override {}
    bool javaScriptConfirm(const QUrl&, const QString&) override { return true; } ///< also: a page may be left
    bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }
    /// Its author's affair, not for the client's output.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {}

private:
    void Restrict();
    void RefuseRequests();

    OpenLink open;
};

} // namespace ombrin::banners
