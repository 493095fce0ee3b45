#pragma once

#include <PlannerCore/Instant.h>

#include <string>
#include <vector>

namespace planner::test {

/// The instant of a moment in UTC.
Instant utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, double second = 0);

/// The names of every zone of the system's tzdata but the machine's own, in alphabetical order.
std::vector<std::string> allTimeZones();

} // namespace planner::test
