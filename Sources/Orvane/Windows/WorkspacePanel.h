#pragma once

#include <QQuickView>

namespace orvane {

class AppModel;
class PanelState;
class TrackingHost;

/// The panel's window: transparent, with NotchRootView in it. How it stands among the other windows
/// is the business of PanelSurface. Main thread.
class WorkspacePanel : public QQuickView {
    Q_OBJECT

public:
    /// All must outlive this. The view is loaded here.
    WorkspacePanel(QQmlEngine& engine, AppModel& model, PanelState& state);

    /// What the root view reports; owned by this.
    TrackingHost& host() const { return *host_; }

private:
    TrackingHost* host_ = nullptr;
};

} // namespace orvane
