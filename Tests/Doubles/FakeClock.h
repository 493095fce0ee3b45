#pragma once

#include "Platform/Clock.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

namespace orvane::test {

/// A clock that stands still until it is advanced. Delays and tickers run inside `advance`, in the
/// order in which they are due; two of the same moment in the order in which they were made. The wall
/// clock and the uptime can also be stepped alone, which runs nothing. Timers may outlive the clock.
class FakeClock : public Clock {
public:
    /// Begins at `now` on the wall clock, `uptime` seconds after boot, in `timeZone`.
    explicit FakeClock(planner::Instant now = {794'800'000}, double uptime = 1000,
                       std::string_view timeZone = "Europe/Berlin");

    planner::Instant now() const override { return now_; }
    double uptime() const override { return uptime_; }
    planner::Calendar calendar() const override { return calendar_; }
    [[nodiscard]] std::unique_ptr<Timer> after(double seconds, std::function<void()> action) override;
    [[nodiscard]] std::unique_ptr<Timer> every(double interval, double tolerance,
                                               std::function<void()> action) override;

    /// Lets `seconds` pass on both clocks and runs what falls due on the way, what that makes due in
    /// turn included. Each action sees the clocks at its own moment.
    void advance(double seconds);
    /// Runs what is due now: `after(0)` and whatever it leads to.
    void settle() { advance(0); }

    /// Sets the wall clock, as a user or a time server would; the uptime and all timers go on.
    void setNow(planner::Instant now) { now_ = now; }
    void stepWall(double seconds) { now_ = now_ + seconds; }
    /// The machine sleeps: the wall clock goes on, the uptime stands still.
    void sleep(double seconds) { stepWall(seconds); }
    /// Sets the uptime alone, backwards too, which no sound system does. Timers keep their distance.
    void setUptime(double uptime) { uptime_ = uptime; }
    void setCalendar(planner::Calendar calendar) { calendar_ = std::move(calendar); }

    /// How many delays and tickers are waiting.
    std::size_t pending() const { return queue_->size(); }
    /// How many of them are tickers.
    std::size_t tickers() const;

private:
    struct Entry {
        double due = 0;      ///< on the timers' own scale, `passed_`
        double interval = 0; ///< 0 for a delay that runs once
        std::function<void()> action;
    };
    /// By the order in which they were made.
    using Queue = std::map<std::uint64_t, Entry>;
    class Handle;

    std::unique_ptr<Timer> add(double seconds, double interval, std::function<void()> action);
    void pass(double until);
    void run(Queue::iterator due);

    planner::Instant now_;
    double uptime_;
    planner::Calendar calendar_;
    /// Seconds advanced so far: the scale of the timers, which no step of a clock touches.
    double passed_ = 0;
    std::uint64_t made_ = 0;
    std::shared_ptr<Queue> queue_ = std::make_shared<Queue>();
};

} // namespace orvane::test
