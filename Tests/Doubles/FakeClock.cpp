#include "Doubles/FakeClock.h"

#include <algorithm>
#include <stdexcept>

namespace orvane::test {

/// Cancels its entry when it goes.
class FakeClock::Handle : public Timer {
public:
    Handle(std::weak_ptr<Queue> queue, std::uint64_t id) : queue_(std::move(queue)), id_(id) {}
    ~Handle() override {
        if (const auto queue = queue_.lock()) queue->erase(id_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

private:
    std::weak_ptr<Queue> queue_;
    std::uint64_t id_;
};

FakeClock::FakeClock(planner::Instant now, double uptime, std::string_view timeZone)
    : now_(now), uptime_(uptime), calendar_(timeZone) {}

std::unique_ptr<Timer> FakeClock::after(double seconds, std::function<void()> action) {
    return add(std::max(seconds, 0.0), 0, std::move(action));
}

std::unique_ptr<Timer> FakeClock::every(double interval, double, std::function<void()> action) {
    if (!(interval > 0)) throw std::invalid_argument("a ticker needs an interval above 0");
    return add(interval, interval, std::move(action));
}

void FakeClock::advance(double seconds) {
    if (!(seconds >= 0)) throw std::invalid_argument("time is advanced forwards; step a clock to go back");
    const auto until = passed_ + seconds;
    for (;;) {
        const auto next =
            std::min_element(queue_->begin(), queue_->end(), [](const auto& left, const auto& right) {
                return left.second.due < right.second.due;
            });
        if (next == queue_->end() || next->second.due > until) break;
        run(next);
    }
    pass(until);
}

std::size_t FakeClock::tickers() const {
    return std::size_t(
        std::ranges::count_if(*queue_, [](const auto& entry) { return entry.second.interval > 0; }));
}

std::unique_ptr<Timer> FakeClock::add(double seconds, double interval, std::function<void()> action) {
    const auto id = made_++;
    queue_->emplace(id, Entry{passed_ + seconds, interval, std::move(action)});
    return std::make_unique<Handle>(queue_, id);
}

void FakeClock::pass(double until) {
    const auto seconds = until - passed_;
    passed_ = until;
    now_ = now_ + seconds;
    uptime_ += seconds;
}

void FakeClock::run(Queue::iterator due) {
    auto& entry = due->second;
    pass(entry.due);
    // The action may destroy its own timer, so what runs is a copy.
    const auto action = entry.action;
    if (entry.interval > 0)
        entry.due += entry.interval;
    else
        queue_->erase(due);
    action();
}

} // namespace orvane::test
