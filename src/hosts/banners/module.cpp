// The door of the module.
#include "hosts/banners/engine_needs.h"
#include "hosts/banners/web_banner.h"

#include <QQuickWindow>
#include <utility>

extern "C" Q_DECL_EXPORT ombrin::banners::BannerView*
OmbrinMakeBannerView1(QWidget* place, ombrin::banners::OpenLink open, QString& why) {
    why = ombrin::banners::WhatTheEngineLacks();
    if (!why.isEmpty()) return nullptr;
    // A place of 468 by 60 pixels is drawn without the graphics card: no driver for strangers to try, none to be set up
    // when the client starts, and the main window need not be made anew to have it.
    if (QQuickWindow::sceneGraphBackend() != QLatin1String("software"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    return new ombrin::banners::WebBanner(place, std::move(open));
}
