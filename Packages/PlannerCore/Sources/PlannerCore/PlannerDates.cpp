#include <PlannerCore/PlannerDates.h>

#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace planner::dates {
namespace {

/// What the timer's text can show at most: ten years of 365.25 days.
constexpr double maximumClockSeconds = 315'576'000;
constexpr std::int64_t secondsAnHour = 3600;

} // namespace

std::string dayID(Instant instant, const Calendar& calendar) {
    const auto day = calendar.day(instant);
    if (!day) return {};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", day->year, day->month, day->day);
    return text;
}

std::string clock(double seconds) {
    if (!std::isfinite(seconds)) return "—";
    const auto whole = std::int64_t(std::ceil(std::clamp(seconds, 0.0, maximumClockSeconds)));
    const auto minutes = whole % secondsAnHour / 60;
    char text[32];
    if (whole < secondsAnHour)
        std::snprintf(text, sizeof text, "%02" PRId64 ":%02" PRId64, minutes, whole % 60);
    else
        std::snprintf(text, sizeof text, "%" PRId64 ":%02" PRId64 ":%02" PRId64, whole / secondsAnHour,
                      minutes, whole % 60);
    return text;
}

double focusSeconds(Instant day, const RecordList<FocusSession>& sessions, const Calendar& calendar) {
    const auto start = calendar.startOfDay(day);
    const auto end = calendar.startOfDay(day, 1);
    if (!start || !end) return 0;
    double sum = 0;
    for (const auto& session : sessions)
        for (const auto& segment : session.segments) {
            const auto overlap =
                std::min(segment.start + segment.duration, *end) - std::max(segment.start, *start);
            if (overlap > 0) sum += overlap;
        }
    return sum;
}

} // namespace planner::dates
