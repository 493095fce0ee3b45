#pragma once

#include "Platform/Clock.h"

namespace orvane {

/// The machine's clocks (clock_gettime(2)) and the event loop's timers.
class SystemClock : public Clock {
public:
    planner::Instant now() const override;
    /// CLOCK_MONOTONIC, which does not count the time the machine sleeps.
    double uptime() const override;
    /// A zone name that the system's own database does not know is read as UTC.
    planner::Calendar calendar() const override;
    [[nodiscard]] std::unique_ptr<Timer> after(double seconds, std::function<void()> action) override;
    [[nodiscard]] std::unique_ptr<Timer> every(double interval, double tolerance,
                                               std::function<void()> action) override;
};

} // namespace orvane
