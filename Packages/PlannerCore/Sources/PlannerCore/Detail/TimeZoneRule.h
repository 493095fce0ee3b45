#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace planner::detail {

/// A stretch of time with one offset from UTC. Times are seconds since 1970-01-01 00:00:00 UTC.
struct OffsetSpan {
    std::int64_t begin = std::numeric_limits<std::int64_t>::min();
    /// The first second that is no longer in it.
    std::int64_t end = std::numeric_limits<std::int64_t>::max();
    /// Seconds that local time is ahead of UTC.
    std::int64_t offset = 0;
};

/// What a zone's clocks do in every year, as a POSIX TZ text states it ("CET-1CEST,M3.5.0,M10.5.0/3"),
/// with the wider range of hours of RFC 8536, section 3.3.1. A plain value; any thread.
class TimeZoneRule {
public:
    /// Nothing for a text that is no such rule, and for one that names a summer time without saying
    /// when it begins and ends.
    static std::optional<TimeZoneRule> parse(std::string_view text);

    /// The span that contains `time`, which must lie within the years -32767 to 32767. At the first
    /// and last year the span may end short of its true end.
    OffsetSpan spanAt(std::int64_t time) const;

private:
    /// A day of the year and the local time on it.
    struct Moment {
        enum class Kind { julian, zeroBased, weekday };
        Kind kind = Kind::zeroBased;
        /// The day's number; for `weekday`, the month.
        int number = 0;
        /// 1 to 5, of which 5 is the month's last.
        int week = 0;
        /// 0 is Sunday.
        int weekday = 0;
        std::int64_t seconds = 7200;

        /// Local seconds since 1970-01-01 00:00:00 in `year`.
        std::int64_t in(int year) const;
    };
    struct Summer {
        std::int64_t offset = 0;
        Moment begin;
        Moment end;
    };
    class Reader;

    std::int64_t offset_ = 0;
    std::optional<Summer> summer_;
};

} // namespace planner::detail
