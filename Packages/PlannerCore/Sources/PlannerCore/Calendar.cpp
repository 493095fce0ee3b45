#include <PlannerCore/Calendar.h>

#include <PlannerCore/Detail/TimeZone.h>

#include <date/date.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace planner {
namespace {

constexpr std::int64_t secondsADay = 86400;
constexpr auto unixEpochSeconds = std::int64_t(unixEpochOffset);

/// Days since 1970-01-01 of the first and the last day there is.
constexpr std::int64_t firstDay =
    date::local_days(date::year::min() / date::January / 1).time_since_epoch().count();
constexpr std::int64_t lastDay =
    date::local_days(date::year::max() / date::December / 31).time_since_epoch().count();

std::int64_t dayContaining(std::int64_t localSeconds) {
    return localSeconds / secondsADay - (localSeconds % secondsADay < 0 ? 1 : 0);
}

/// The local day number of an instant.
std::optional<std::int64_t> localDay(const detail::TimeZone& zone, Instant instant) {
    const auto inUnixTime = std::floor(instant.seconds) + unixEpochOffset;
    if (!(inUnixTime >= double(firstDay * secondsADay) && inUnixTime < double((lastDay + 1) * secondsADay)))
        return std::nullopt;
    const auto whole = std::int64_t(inUnixTime);
    const auto day = dayContaining(whole + zone.spanAt(whole).offset);
    if (day < firstDay || day > lastDay) return std::nullopt;
    return day;
}

} // namespace

Calendar::Calendar(std::string_view timeZone, unsigned firstWeekday)
    : zone_(std::make_shared<detail::TimeZone>(timeZone)), firstWeekday_(firstWeekday) {
    if (firstWeekday > 6) throw std::invalid_argument("a weekday is 0 to 6");
}

std::string Calendar::timeZone() const {
    return zone_->name();
}

std::optional<CivilDay> Calendar::day(Instant instant) const {
    const auto number = localDay(*zone_, instant);
    if (!number) return std::nullopt;
    const date::year_month_day day{date::local_days{date::days(int(*number))}};
    return CivilDay{int(day.year()), unsigned(day.month()), unsigned(day.day())};
}

std::optional<Instant> Calendar::startOfDay(Instant instant) const {
    return startOfDay(instant, 0);
}

std::optional<Instant> Calendar::startOfDay(Instant instant, int days) const {
    const auto today = localDay(*zone_, instant);
    if (!today || *today + days < firstDay || *today + days > lastDay) return std::nullopt;
    // The first moment at which local clocks show this midnight or, where they jump over it, anything
    // later. No offset reaches a whole day, so the search begins early enough.
    const auto midnight = (*today + days) * secondsADay;
    auto span = zone_->spanAt(std::max(midnight - secondsADay, firstDay * secondsADay));
    while (midnight - span.offset >= span.end) span = zone_->spanAt(span.end);
    return Instant{double(std::max(midnight - span.offset, span.begin) - unixEpochSeconds)};
}

bool Calendar::operator==(const Calendar& other) const {
    return firstWeekday_ == other.firstWeekday_ && zone_->name() == other.zone_->name();
}

} // namespace planner
