#include <PlannerCore/Insights.h>

#include <PlannerCore/Checked.h>
#include <PlannerCore/Titles.h>

#include <algorithm>

namespace planner::insights {
namespace {

constexpr int daysInWeek = 7;

double overlap(const FocusSegment& segment, const Day& day) {
    return std::min(segment.start + segment.duration, day.end) - std::max(segment.start, day.start);
}

bool isWithin(const std::optional<Instant>& instant, const Day& day) {
    return instant && *instant >= day.start && *instant < day.end;
}

/// Whether a task counts as completed in a week whose first day begins then.
bool isCompletedSince(Instant begin, const PlannerTask& task) {
    return task.completedAt && *task.completedAt >= begin;
}

/// Adds to each of `days`, which are in order, its share of the segments. The order of the additions is
/// that of `dates::focusSeconds` for each day alone, so the sums are the same numbers.
void addFocus(std::vector<DayFocus>& days, const RecordList<FocusSession>& sessions) {
    if (days.empty()) return;
    const auto first = days.front().day.start;
    const auto last = days.back().day.end;
    for (const auto& session : sessions)
        for (const auto& segment : session.segments) {
            // When a session was begun says nothing certain about its segments, since the clock may have
            // been set meanwhile: each one is looked at, and nearly all end here.
            if (!(segment.start < last && segment.start + segment.duration > first)) continue;
            for (auto& [day, seconds] : days)
                if (const auto share = overlap(segment, day); share > 0) seconds += share;
        }
}

} // namespace

std::optional<Day> dayOf(Instant instant, const Calendar& calendar, int offset) {
    const auto start = calendar.startOfDay(instant, offset);
    const auto end = calendar.startOfDay(instant, offset + 1);
    if (!start || !end || !(*start < *end)) return std::nullopt;
    return Day{*start, *end};
}

Week week(const PlannerSnapshot& planner, Instant now, const Calendar& calendar) {
    Week week;
    for (int offset = 1 - daysInWeek; offset <= 0; ++offset)
        if (const auto day = dayOf(now, calendar, offset)) week.days.push_back({*day, 0});
    if (week.days.empty()) return week;
    addFocus(week.days, planner.sessions);
    const auto begin = week.days.front().day.start;
    for (const auto& task : planner.tasks)
        if (isCompletedSince(begin, task)) ++week.tasksCompleted;
    double seconds = 0;
    for (const auto& day : week.days) {
        seconds += day.seconds;
        if (day.seconds > 0) ++week.daysWithFocus;
    }
    week.focusMinutes = checkedTruncation(seconds / 60);
    return week;
}

void recount(Week& week, const RecordList<PlannerTask>& before, const RecordList<PlannerTask>& after) {
    if (week.days.empty()) return;
    const auto begin = week.days.front().day.start;
    std::size_t gone = 0, come = 0;
    before.forEachUnshared(after, [&](const auto& task) { gone += isCompletedSince(begin, task) ? 1 : 0; });
    after.forEachUnshared(before, [&](const auto& task) { come += isCompletedSince(begin, task) ? 1 : 0; });
    week.tasksCompleted = week.tasksCompleted + come - gone;
}

std::vector<std::size_t> completedOn(const Day& day, const RecordList<PlannerTask>& tasks) {
    std::vector<std::pair<Instant, std::size_t>> found;
    std::size_t position = 0;
    for (const auto& task : tasks) {
        if (isWithin(task.completedAt, day)) found.emplace_back(*task.completedAt, position);
        ++position;
    }
    std::ranges::sort(found);
    std::vector<std::size_t> positions;
    positions.reserve(found.size());
    for (const auto& [completedAt, at] : found) positions.push_back(at);
    return positions;
}

std::vector<SessionOfDay> sessionsOn(const Day& day, const RecordList<FocusSession>& sessions) {
    std::vector<SessionOfDay> found;
    std::size_t position = 0;
    for (const auto& session : sessions) {
        double seconds = 0;
        for (const auto& segment : session.segments)
            if (const auto share = overlap(segment, day); share > 0) seconds += share;
        if (seconds > 0 || isWithin(session.createdAt, day))
            found.push_back({position, checkedTruncation(seconds / 60)});
        ++position;
    }
    return found;
}

std::optional<std::size_t> noteOn(std::string_view dayID, const RecordList<DailyNote>& notes) {
    const auto position = notes.find([&](const DailyNote& note) { return note.id == dayID; });
    if (position == notes.size() || titles::isBlank(notes[position].text)) return std::nullopt;
    return position;
}

} // namespace planner::insights
