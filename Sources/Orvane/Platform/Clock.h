#pragma once

#include <PlannerCore/Calendar.h>
#include <PlannerCore/Instant.h>

#include <functional>
#include <memory>

namespace orvane {

/// A pending delay or a running ticker. Destroying it cancels it: its action is not called again. An
/// action may destroy its own timer.
class Timer {
public:
    virtual ~Timer() = default;
};

/// The only source of time. Main thread.
class Clock {
public:
    virtual ~Clock() = default;

    /// Wall-clock time. May jump either way.
    virtual planner::Instant now() const = 0;

    /// Seconds since boot on a monotonic clock that stands still while the machine sleeps.
    virtual double uptime() const = 0;

    /// The user's calendar: the present time zone and the locale's first weekday.
    virtual planner::Calendar calendar() const = 0;

    /// Calls `action` once on the main thread, `seconds` from now; 0 means as soon as the event loop
    /// is reached again, never inside this call. The caller owns the result.
    [[nodiscard]] virtual std::unique_ptr<Timer> after(double seconds, std::function<void()> action) = 0;

    /// Calls `action` on the main thread every `interval` seconds, up to `tolerance` seconds late.
    [[nodiscard]] virtual std::unique_ptr<Timer> every(double interval, double tolerance,
                                                       std::function<void()> action) = 0;
};

} // namespace orvane
