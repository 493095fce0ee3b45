#pragma once

#include <PlannerCore/Calendar.h>
#include <PlannerCore/Instant.h>
#include <PlannerCore/PlannerSnapshot.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// What a planner says about days: pure functions, any thread.
namespace planner::insights {

/// A local day from its first instant to that of the next one.
struct Day {
    Instant start;
    Instant end;

    bool operator==(const Day&) const = default;
};

/// The local day that contains `instant`, or the one `offset` days after it (before, when negative).
/// Nothing when the calendar cannot form it: outside its years, or a date that the zone skipped
/// altogether.
std::optional<Day> dayOf(Instant instant, const Calendar& calendar, int offset = 0);

/// A day and its seconds of focus.
struct DayFocus {
    Day day;
    double seconds = 0;

    bool operator==(const DayFocus&) const = default;
};

/// Seven days in numbers.
struct Week {
    /// Oldest first, the last one is today. Seven, less those that the calendar cannot form. The seconds
    /// are, bit for bit, those of `dates::focusSeconds`.
    std::vector<DayFocus> days;
    /// Tasks completed since the first of the days began, later than today included; 0 without days.
    std::size_t tasksCompleted = 0;
    /// Whole minutes of focus in all the days together, cut off.
    std::int64_t focusMinutes = 0;
    /// Days with any focus at all.
    std::size_t daysWithFocus = 0;

    bool operator==(const Week&) const = default;
};

/// The seven days that end with the one that contains `now`. One pass over the tasks and one over the
/// segments of all sessions, whatever the number of days.
Week week(const PlannerSnapshot& planner, Instant now, const Calendar& calendar);

/// Brings a week's count of tasks, taken from `before`, in line with `after`. Where the one list came from
/// the other, at a cost that follows what was changed.
void recount(Week& week, const RecordList<PlannerTask>& before, const RecordList<PlannerTask>& after);

/// The positions of the tasks that were completed on `day`, in the order in which they were.
std::vector<std::size_t> completedOn(const Day& day, const RecordList<PlannerTask>& tasks);

/// A session on a day.
struct SessionOfDay {
    /// Its position in the list.
    std::size_t position = 0;
    /// Whole minutes of its focus on that day, cut off.
    std::int64_t minutes = 0;

    bool operator==(const SessionOfDay&) const = default;
};

/// The sessions that were begun on `day` or have focus on it, in the planner's order.
std::vector<SessionOfDay> sessionsOn(const Day& day, const RecordList<FocusSession>& sessions);

/// The position of the note with the key `dayID`; nothing when there is none or it holds nothing but
/// white space.
std::optional<std::size_t> noteOn(std::string_view dayID, const RecordList<DailyNote>& notes);

} // namespace planner::insights
