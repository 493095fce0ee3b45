#pragma once

#include "Model/NavigationModel.h"
#include "Platform/Clock.h"
#include "Platform/Screens.h"
#include "Windows/HotKeyController.h"

#include <QObject>

#include <memory>
#include <optional>

namespace orvane {

class AppModel;
class DashboardSurface;
class PanelState;
class PanelSurface;
struct Platform;

/// Decides when the panel is the strip and when the open workspace, where it stands, and when the
/// Dashboard is shown: from the pointer, the hot key, presses outside, changes of the desktop and the
/// model's commands. Main thread.
class WindowCoordinator : public QObject {
    Q_OBJECT

public:
    /// What it steers; all must outlive it.
    struct Parts {
        AppModel& model;
        Platform& platform;
        PanelState& state;
        NavigationModel& navigation;
        PanelSurface& panel;
        DashboardSurface& dashboard;
    };

    /// Installs the panel's callbacks in the model, registers the hot key and shows the strip.
    explicit WindowCoordinator(const Parts& parts, QObject* parent = nullptr);
    ~WindowCoordinator() override;

    /// Opens the workspace, with the keyboard in its add field when `keyboard`. While the model is not
    /// ready the Dashboard is shown instead. Nothing happens while a dialog is shown, nor, without the
    /// keyboard, while the Dashboard is in front.
    void expand(bool keyboard);
    /// Closes the workspace back to the strip.
    void collapse();

    /// The pointer came over the panel's body or left it.
    void entered();
    void exited();

    void showDashboard(NavigationModel::DashboardPage page);
    /// Works out the panel's place anew and shows it there; `animated` lets the body move to it.
    void position(bool animated);

    /// Takes everything down at the end of the program. Nothing is shown afterwards.
    void stop();

private:
    void installCallbacks();
    void registerHotKey();
    void followDesktop();
    void suppress();
    void restore();
    void dashboardChanged();
    std::optional<Screen> screen() const;

    AppModel& model_;
    Platform& platform_;
    PanelState& state_;
    NavigationModel& navigation_;
    PanelSurface& panel_;
    DashboardSurface& dashboard_;
    HotKeyController hotKey_;
    std::unique_ptr<Timer> hoverWork_;
    std::unique_ptr<Timer> closeWork_;
    std::unique_ptr<Timer> focusWork_;
    /// Hovering must not open the panel: the Dashboard is in front.
    bool suppressed_ = false;
    /// The panel was opened on purpose: leaving it with the pointer does not close it.
    bool openedExplicitly_ = false;
    /// A dialog is shown: the panel stays away.
    bool presentingDialog_ = false;
    bool stopped_ = false;
};

} // namespace orvane
