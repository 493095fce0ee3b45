#include <PlannerCore/FocusSession.h>

#include <utility>

namespace planner {

std::string_view rawValue(FocusMode mode) {
    return mode == FocusMode::countdown ? "countdown" : "stopwatch";
}

std::string_view rawValue(FocusStatus status) {
    switch (status) {
    case FocusStatus::running:
        return "running";
    case FocusStatus::paused:
        return "paused";
    case FocusStatus::finished:
        break;
    }
    return "finished";
}

std::optional<FocusMode> focusMode(std::string_view raw) {
    for (const auto mode : allFocusModes)
        if (raw == rawValue(mode)) return mode;
    return std::nullopt;
}

std::optional<FocusStatus> focusStatus(std::string_view raw) {
    for (const auto status : {FocusStatus::running, FocusStatus::paused, FocusStatus::finished})
        if (raw == rawValue(status)) return status;
    return std::nullopt;
}

FocusSession::FocusSession(Uuid taskID, std::string title, FocusMode mode, double target, Instant now)
    : id(Uuid::random()), taskID(taskID), title(std::move(title)), mode(mode), target(target),
      createdAt(now) {}

double FocusSession::activeDuration() const {
    double sum = 0;
    for (const auto& segment : segments) sum += segment.duration;
    return sum;
}

} // namespace planner
