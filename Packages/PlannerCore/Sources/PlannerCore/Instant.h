#pragma once

#include <compare>

namespace planner {

/// A point on the wall clock, in seconds (with fraction) since 2001-01-01 00:00:00 UTC.
/// A plain value; any thread. Not to be mixed with the monotonic uptime, which is a bare double of
/// seconds since boot.
struct Instant {
    double seconds = 0;

    /// Compares the numbers, so -0.0 equals 0.0 and a NaN equals nothing.
    auto operator<=>(const Instant&) const = default;
};

/// The instant `seconds` after `instant` (before it, when negative).
constexpr Instant operator+(Instant instant, double seconds) {
    return {instant.seconds + seconds};
}
constexpr Instant operator-(Instant instant, double seconds) {
    return {instant.seconds - seconds};
}

/// The seconds from `right` to `left`; negative when `left` is earlier.
constexpr double operator-(Instant left, Instant right) {
    return left.seconds - right.seconds;
}

/// Seconds from 1970-01-01 00:00:00 UTC to 2001-01-01 00:00:00 UTC.
inline constexpr double unixEpochOffset = 978307200.0;

} // namespace planner
