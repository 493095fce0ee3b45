#pragma once

#include "Model/AppModel.h"
#include "Model/NavigationModel.h"
#include "Model/PanelState.h"
#include "Platform/Linux/X11PanelSurface.h"
#include "Windows/DashboardWindow.h"
#include "Windows/WindowCoordinator.h"
#include "Windows/WorkspacePanel.h"

#include "App/AppDelegate.h"
#include "App/LinuxPlatform.h"
#include "App/SingleInstance.h"

#include <QQmlEngine>

namespace orvane {

/// The whole program put together, each part made after what it needs. Main thread.
class OrvaneApp {
public:
    /// Shows the strip; `platform` must outlive this.
    explicit OrvaneApp(LinuxPlatform& platform);

    /// Opens the planner and listens for further starts of the program.
    void launch();

private:
    QQmlEngine engine_;
    AppModel model_;
    PanelState state_;
    NavigationModel navigation_;
    WorkspacePanel panel_;
    X11PanelSurface surface_;
    DashboardWindow dashboard_;
    WindowCoordinator windows_;
    AppDelegate delegate_;
    SingleInstance instance_;
};

} // namespace orvane
