#include "Windows/WorkspacePanel.h"

#include "Model/AppModel.h"
#include "Model/PanelState.h"
#include "Windows/TrackingHost.h"

#include <QQuickItem>
#include <QVariant>

namespace orvane {

WorkspacePanel::WorkspacePanel(QQmlEngine& engine, AppModel& model, PanelState& state)
    : QQuickView(&engine, nullptr) {
    setTitle(QStringLiteral("Orvane"));
    setResizeMode(QQuickView::SizeRootObjectToView);
    setColor(Qt::transparent);
    setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model)},
                          {QStringLiteral("state"), QVariant::fromValue(&state)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Orvane/NotchRootView.qml")));
    // Without its view the program has nothing to show: a broken build, not a condition to live with.
    if (!rootObject()) qFatal("The panel's view cannot be loaded.");
    host_ = new TrackingHost(rootObject());
}

} // namespace orvane
