#include "Times.h"

#include <date/tz.h>

#include <algorithm>

namespace planner::test {

Instant utc(int year, unsigned month, unsigned day, int hour, int minute, double second) {
    const date::sys_days days = date::year(year) / date::month(month) / date::day(day);
    return {double(days.time_since_epoch().count()) * 86400 + hour * 3600 + minute * 60 + second -
            unixEpochOffset};
}

std::vector<std::string> allTimeZones() {
    std::vector<std::string> names;
    for (const auto& zone : date::get_tzdb().zones)
        if (zone.name() != "localtime") names.push_back(zone.name());
    std::ranges::sort(names);
    return names;
}

} // namespace planner::test
