#pragma once

#include <PlannerCore/Calendar.h>

#include <QObject>

#include <functional>
#include <memory>

class QWindow;

namespace orvane {

class AppModel;
class Timer;
class WindowCoordinator;
struct Platform;

/// The program's life: launch, being opened again, and leaving without losing anything. Main thread.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// `terminate` ends the event loop. All must outlive this.
    AppDelegate(Platform& platform, AppModel& model, WindowCoordinator& windows,
                std::function<void()> terminate);
    ~AppDelegate() override;

    /// Opens the planner; one that cannot be opened is shown in the Dashboard.
    void launch();
    /// Waits for the next local midnight, and no longer for the one waited for so far. Call it when the
    /// clocks may have moved: after waking and when the time or its zone was set.
    void scheduleMidnight();
    /// The user started the program while it runs.
    void reopen();
    /// Leaves once everything is saved. When that fails the user decides; a second request meanwhile
    /// waits for the first one's end.
    void quit();
    /// Lets Ctrl+Q in `window` quit.
    void watch(QWindow& window);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void askWhetherToLose();
    void end();
    /// What was waited for since `day` is due.
    void reachMidnight(planner::CivilDay day);

    Platform& platform_;
    AppModel& model_;
    WindowCoordinator& windows_;
    std::function<void()> terminate_;
    bool terminating_ = false;
    std::unique_ptr<Timer> midnight_;
};

} // namespace orvane
