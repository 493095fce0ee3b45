#include "App/OrvaneApp.h"

#include "Views/ViewEngine.h"
#include "Views/WidgetPalette.h"
#include "Windows/TrackingHost.h"

#include <QCoreApplication>

namespace orvane {
namespace {

QQmlEngine& prepared(QQmlEngine& engine) {
    prepareEngine(engine);
    return engine;
}

} // namespace

OrvaneApp::OrvaneApp(LinuxPlatform& platform)
    : model_(platform.platform), panel_(prepared(engine_), model_, state_), surface_(panel_, state_),
      dashboard_({engine_, model_, navigation_, platform.defaults, platform.systemEvents,
                  [this](QWindow& window) { delegate_.watch(window); }}),
      windows_({model_, platform.platform, state_, navigation_, surface_, dashboard_}),
      delegate_(platform.platform, model_, windows_, [] { QCoreApplication::exit(0); }) {
    auto& host = panel_.host();
    host.entered = [this] { windows_.entered(); };
    host.exited = [this] { windows_.exited(); };
    host.open = [this] { windows_.expand(false); };
    delegate_.watch(panel_);
    QObject::connect(&instance_, &SingleInstance::activated, &delegate_, &AppDelegate::reopen);
    platform.alerts.setEngine(engine_);
    platform.alerts.setDark([this] { return model_.settings()->dark(); });
    platform.filePanels.setPalette([this] { return widgetPalette(engine_, model_.settings()->dark()); });
}

void OrvaneApp::launch() {
    instance_.claim();
    delegate_.launch();
}

} // namespace orvane
