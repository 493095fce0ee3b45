#pragma once

#include "Doubles/FakeClock.h"

#include <PlannerCore/PlannerDates.h>
#include <PlannerCore/PlannerSnapshot.h>

#include <string>
#include <utility>

namespace orvane::test {

/// A planner with a past, whose times are told by the days before a clock's today.
class PastPlanner {
public:
    explicit PastPlanner(const Clock& clock) : clock_(clock) {}

    planner::PlannerSnapshot snapshot;

    /// The hour of the day `daysAgo` before today.
    planner::Instant at(int daysAgo, double hour) const {
        return *clock_.calendar().startOfDay(clock_.now(), -daysAgo) + hour * 3600;
    }
    /// The key of that day.
    std::string day(int daysAgo) const { return planner::dates::dayID(at(daysAgo, 0), clock_.calendar()); }

    const planner::PlannerTask& complete(int daysAgo, double hour, std::string title) {
        planner::PlannerTask task(planner::Uuid::random(), std::move(title), at(daysAgo, hour) - 60,
                                  static_cast<std::int64_t>(snapshot.tasks.size()));
        task.completedAt = at(daysAgo, hour);
        snapshot.tasks.push_back(std::move(task));
        return snapshot.tasks.back();
    }
    /// A session of one segment that begins there.
    void focus(int daysAgo, double hour, std::string title, double minutes,
               planner::FocusStatus status = planner::FocusStatus::finished) {
        planner::FocusSession session(planner::Uuid::random(), std::move(title),
                                      planner::FocusMode::stopwatch, 1500, at(daysAgo, hour));
        session.status = status;
        session.segments.push_back({at(daysAgo, hour), minutes * 60});
        snapshot.sessions.push_back(std::move(session));
    }
    void note(int daysAgo, std::string text) {
        snapshot.notes.push_back({day(daysAgo), std::move(text), at(daysAgo, 12)});
    }

private:
    const Clock& clock_;
};

} // namespace orvane::test
