#pragma once

#include <PlannerCore/Instant.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace planner {

namespace detail {
class TimeZone;
}

/// A day of the proleptic Gregorian calendar.
struct CivilDay {
    int year = 1970;
    unsigned month = 1; ///< 1 to 12
    unsigned day = 1;   ///< 1 to 31

    auto operator<=>(const CivilDay&) const = default;
};

/// The Gregorian calendar in one time zone. A plain value whose copies share the zone; any thread.
class Calendar {
public:
    /// `timeZone` is a name of the system's tzdata ("Europe/Berlin", "UTC"); `firstWeekday` is 0 for
    /// Sunday to 6 for Saturday. Throws std::invalid_argument for a zone that the system does not
    /// know or a weekday outside that range.
    /// Reads the zone's file, so a calendar is made once and kept.
    explicit Calendar(std::string_view timeZone, unsigned firstWeekday = 1);

    std::string timeZone() const;
    unsigned firstWeekday() const { return firstWeekday_; }

    /// The local day on which `instant` falls; nothing when it lies outside the years -32767 to 32767
    /// or is not finite.
    std::optional<CivilDay> day(Instant instant) const;

    /// The first instant of the local day that contains `instant`: midnight, or where the clocks skip
    /// midnight, the first moment after the gap. Nothing when `day` gives nothing.
    std::optional<Instant> startOfDay(Instant instant) const;

    /// The first instant of the local day `days` after (before, when negative) the one that contains
    /// `instant`. A date that the zone skipped altogether begins where the skip ends.
    std::optional<Instant> startOfDay(Instant instant, int days) const;

    /// Zones are the same when their names are.
    bool operator==(const Calendar& other) const;

private:
    std::shared_ptr<const detail::TimeZone> zone_;
    unsigned firstWeekday_;
};

} // namespace planner
