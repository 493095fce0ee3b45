#pragma once

#include "Windows/DashboardSurface.h"

#include <QPointer>
#include <QQuickView>
#include <QRect>

#include <functional>
#include <memory>

namespace orvane {

class AppModel;
class NavigationModel;
class SystemEvents;
class UserDefaults;

/// The Dashboard: an ordinary window with DashboardView in it. It is made on first use and kept;
/// closing hides it. Its frame is remembered under the user default "OrvaneDashboard" as
/// "x y width height". Main thread.
class DashboardWindow : public DashboardSurface {
    Q_OBJECT

public:
    struct Parts {
        QQmlEngine& engine;
        AppModel& model;
        NavigationModel& navigation;
        UserDefaults& defaults;
        SystemEvents& systemEvents;
        /// Called once, when the window has been made and before it is shown.
        std::function<void(QWindow&)> made;
    };

    /// All must outlive this.
    explicit DashboardWindow(Parts parts);
    ~DashboardWindow() override;

    void show(std::optional<planner::Rect> visible) override;
    void hide() override;
    bool visible() const override;
    bool isKey() const override;

private slots:
    void moveBy(double dx, double dy);
    void toggleMaximized();
    void putAway() { hide(); }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void make(std::optional<planner::Rect> visible);
    void follow();
    QRect remembered() const;
    void remember();
    void tellDecoration();

    Parts parts_;
    std::unique_ptr<QQuickView> window_;
    /// The frame to go back to while the window, decorated by nobody, fills its screen.
    QRect restingFrame_;
};

/// `frame` no larger than `room` and moved into it. Pure.
QRect pulledInto(const QRect& frame, const QRect& room);

/// The Dashboard's first frame: 1320 × 730, or what `room` leaves with 20 around it, in its middle;
/// never below the least size. Pure.
QRect firstDashboardFrame(const QRect& room);

} // namespace orvane
