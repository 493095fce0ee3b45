#include <PlannerCore/FocusEngine.h>

#include <algorithm>
#include <utility>

namespace planner {
namespace {

constexpr double extensionSeconds = 300;
constexpr double maximumTarget = 86400;

} // namespace

FocusEngine::FocusEngine(FocusSession taken, Instant now, double uptime, bool recovering)
    : session(std::move(taken)) {
    if (session.status != FocusStatus::running) return;
    if (recovering) {
        session.status = FocusStatus::paused;
        return;
    }
    anchorUptime = uptime;
    anchorDate = now;
}

double FocusEngine::elapsed(double uptime) const {
    const auto open = anchorUptime ? std::max(uptime - *anchorUptime, 0.0) : 0.0;
    const auto total = open + session.activeDuration();
    return session.mode == FocusMode::countdown ? std::min(total, session.target) : total;
}

double FocusEngine::displayed(double uptime) const {
    const auto spent = elapsed(uptime);
    return session.mode == FocusMode::countdown ? std::max(session.target - spent, 0.0) : spent;
}

void FocusEngine::checkpoint(Instant now, double uptime) {
    if (session.status != FocusStatus::running || !anchorDate) return;
    const auto open = elapsed(uptime) - session.activeDuration();
    if (open > 0) session.segments.push_back({*anchorDate, open});
    anchorDate = now;
    anchorUptime = uptime;
    if (session.mode == FocusMode::countdown && session.target <= session.activeDuration()) {
        session.status = FocusStatus::finished;
        anchorDate.reset();
        anchorUptime.reset();
    }
}

void FocusEngine::pause(Instant now, double uptime) {
    checkpoint(now, uptime);
    if (session.status != FocusStatus::finished) session.status = FocusStatus::paused;
    anchorDate.reset();
    anchorUptime.reset();
}

void FocusEngine::resume(Instant now, double uptime) {
    if (session.status != FocusStatus::paused) return;
    session.status = FocusStatus::running;
    anchorUptime = uptime;
    anchorDate = now;
}

void FocusEngine::finish(Instant now, double uptime) {
    checkpoint(now, uptime);
    anchorDate.reset();
    anchorUptime.reset();
}

void FocusEngine::extend() {
    if (session.mode != FocusMode::countdown || session.status == FocusStatus::finished) return;
    session.target = std::min(session.target + extensionSeconds, maximumTarget);
}

bool FocusEngine::finishedAtDeadline(FocusStatus previous) const {
    return previous == FocusStatus::running && session.mode == FocusMode::countdown &&
           session.status == FocusStatus::finished && session.target <= session.activeDuration();
}

} // namespace planner
