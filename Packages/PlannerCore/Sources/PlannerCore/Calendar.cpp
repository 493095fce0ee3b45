#include <PlannerCore/Calendar.h>

#include <date/tz.h>

#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace planner {
namespace {

constexpr std::int64_t secondsADay = 86400;
constexpr auto unixEpochSeconds = std::int64_t(unixEpochOffset);

/// Days since 1970-01-01.
std::int64_t dayNumber(date::year_month_day day) {
    return date::local_days(day).time_since_epoch().count();
}

bool representable(std::int64_t day) {
    static const auto first = dayNumber(date::year::min() / date::January / 1);
    static const auto last = dayNumber(date::year::max() / date::December / 31);
    return first <= day && day <= last;
}

/// The local day number of an instant.
std::optional<std::int64_t> localDay(const date::time_zone& zone, Instant instant) {
    // Far outside every year and well inside 64 bits.
    if (!(std::abs(instant.seconds) < 1e15)) return std::nullopt;
    const auto whole = std::int64_t(std::floor(instant.seconds)) + unixEpochSeconds;
    const date::sys_seconds time{std::chrono::seconds(whole)};
    const auto local = whole + zone.get_info(time).offset.count();
    const auto day = local / secondsADay - (local % secondsADay < 0 ? 1 : 0);
    if (!representable(day)) return std::nullopt;
    return day;
}

const date::time_zone* located(std::string_view name) {
    try {
        return date::locate_zone(name);
    } catch (const std::runtime_error& error) {
        throw std::invalid_argument(error.what());
    }
}

} // namespace

Calendar::Calendar(std::string_view timeZone, unsigned firstWeekday)
    : zone_(located(timeZone)), firstWeekday_(firstWeekday) {
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
    if (!today || !representable(*today + days)) return std::nullopt;
    const date::local_seconds midnight{std::chrono::seconds((*today + days) * secondsADay)};
    const auto info = zone_->get_info(midnight);
    const auto start = info.result == date::local_info::nonexistent
                           ? info.first.end
                           : date::sys_seconds(midnight.time_since_epoch() - info.first.offset);
    return Instant{double(start.time_since_epoch().count() - unixEpochSeconds)};
}

} // namespace planner
