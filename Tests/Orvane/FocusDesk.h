#pragma once

#include "Doubles/FakeClock.h"
#include "Model/FocusController.h"

#include <vector>

namespace orvane::test {

/// A controller whose owner notes what it is told.
struct FocusDesk {
    FakeClock clock{planner::Instant{794'800'000}, 1000};
    FocusController focus{clock};
    std::vector<planner::FocusSession> saved;
    std::vector<planner::FocusSession> completed;
    const planner::PlannerTask task{planner::Uuid::random(), "Write the letter", planner::Instant{0}, 1};

    FocusDesk() {
        focus.onCheckpoint = [this](const planner::FocusSession& session) { saved.push_back(session); };
        focus.onCompleted = [this](const planner::FocusSession& session) { completed.push_back(session); };
    }

    const planner::FocusSession& session() const { return focus.engine()->session; }
};

/// A countdown as the store may hold it: of 1,500 seconds planned, 120 are counted.
inline planner::FocusSession storedCountdown(planner::FocusStatus status) {
    planner::FocusSession session(planner::Uuid::random(), "Write the letter", planner::FocusMode::countdown,
                                  1500, planner::Instant{790'000'000});
    session.status = status;
    session.segments = {{planner::Instant{790'000'000}, 70}, {planner::Instant{790'000'100}, 50}};
    return session;
}

} // namespace orvane::test
