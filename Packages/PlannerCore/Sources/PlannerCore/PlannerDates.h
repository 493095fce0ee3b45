#pragma once

#include <PlannerCore/Calendar.h>
#include <PlannerCore/FocusSession.h>
#include <PlannerCore/Instant.h>
#include <PlannerCore/RecordList.h>

#include <string>

/// Pure functions over days and times; any thread.
namespace planner::dates {

/// The key that names a day's note, "%04d-%02d-%02d" of the local year, month and day: keys of the
/// years 0 to 9999 sort as text in the order of their days. An instant that falls on no day of the
/// calendar gives an empty text.
std::string dayID(Instant instant, const Calendar& calendar);

/// Timer text of a number of seconds, rounded up to whole ones: "04:05", from an hour on "1:00:00".
/// Negative counts as 0, anything above 315,576,000 as that, and what is not finite reads "—".
std::string clock(double seconds);

/// Seconds of counted focus within the local day that contains `day`, whatever the sessions' status.
/// A segment that crosses midnight gives each day its share. 0 when the calendar cannot form the day.
double focusSeconds(Instant day, const RecordList<FocusSession>& sessions, const Calendar& calendar);

} // namespace planner::dates
