#pragma once

#include <PlannerCore/FocusSession.h>

#include <optional>

namespace planner {

/// Time accounting of one focus session.
///
/// Running time is measured on the monotonic uptime (seconds since boot); the start of each stored
/// segment is a wall-clock instant. The engine reads no clock: each operation is given both. A plain
/// value without side effects; any thread.
///
/// The anchors are present exactly while the session runs and was started or resumed by this engine;
/// the time since then is the open stretch, which the next checkpoint turns into a segment.
struct FocusEngine {
    FocusSession session;
    std::optional<double> anchorUptime;
    std::optional<Instant> anchorDate;

    /// Takes the session over. With `recovering`, one that was left running comes up paused, so that
    /// the time nobody watched is not counted; otherwise a running one starts counting here.
    FocusEngine(FocusSession session, Instant now, double uptime, bool recovering);

    /// Seconds spent: all segments and the open stretch; for a countdown never more than its target.
    /// An uptime before the anchor counts nothing.
    double elapsed(double uptime) const;

    /// Seconds to show: time left for a countdown (never below 0), time spent for a stopwatch.
    double displayed(double uptime) const;

    /// Closes the open stretch into a segment and opens the next one here. A countdown that reached
    /// its target becomes finished. Does nothing unless running.
    void checkpoint(Instant now, double uptime);

    /// Checkpoints, then stops counting; a countdown that just ran out stays finished.
    void pause(Instant now, double uptime);

    /// Goes on counting from here; only from paused.
    void resume(Instant now, double uptime);

    /// Checkpoints and stops counting. The status is the caller's to set.
    void finish(Instant now, double uptime);

    /// Adds five minutes to the target of a running or paused countdown, up to 24 hours.
    void extend();

    /// Whether the operation that began with status `previous` ran the countdown out.
    bool finishedAtDeadline(FocusStatus previous) const;

    bool operator==(const FocusEngine&) const = default;
};

} // namespace planner
