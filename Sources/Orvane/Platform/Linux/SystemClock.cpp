#include "Platform/Linux/SystemClock.h"

#include <QLocale>
#include <QTimeZone>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <stdexcept>
#include <utility>

namespace orvane {
namespace {

double read(clockid_t id) {
    timespec time{};
    clock_gettime(id, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// Never early: a delay is rounded up to the event loop's whole milliseconds.
std::chrono::milliseconds milliseconds(double seconds) {
    const double wanted = std::ceil(std::max(seconds, 0.0) * 1000);
    return std::chrono::milliseconds(int(std::min(wanted, double(std::numeric_limits<int>::max()))));
}

class QtTimer : public Timer {
public:
    QtTimer(double seconds, Qt::TimerType type, bool once, std::function<void()> action)
        : action_(std::move(action)) {
        timer_.setSingleShot(once);
        timer_.setTimerType(type);
        // The action may destroy this timer, and with it the function that is running.
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            const auto running = action_;
            running();
        });
        timer_.start(milliseconds(seconds));
    }

private:
    std::function<void()> action_;
    QTimer timer_;
};

/// A coarse timer may be late, or early, by a twentieth of its interval; it lets the machine sleep
/// through several timers at once.
Qt::TimerType typeFor(double interval, double tolerance) {
    return tolerance >= interval * 0.05 ? Qt::CoarseTimer : Qt::PreciseTimer;
}

} // namespace

planner::Instant SystemClock::now() const {
    return {read(CLOCK_REALTIME) - planner::unixEpochOffset};
}

double SystemClock::uptime() const {
    return read(CLOCK_MONOTONIC);
}

planner::Calendar SystemClock::calendar() const {
    // Qt counts Monday as 1 to Sunday as 7; the calendar counts Sunday as 0.
    const auto firstWeekday = unsigned(QLocale().firstDayOfWeek()) % 7;
    try {
        return planner::Calendar(QTimeZone::systemTimeZoneId().toStdString(), firstWeekday);
    } catch (const std::invalid_argument&) {
        return planner::Calendar("UTC", firstWeekday);
    }
}

std::unique_ptr<Timer> SystemClock::after(double seconds, std::function<void()> action) {
    return std::make_unique<QtTimer>(seconds, Qt::PreciseTimer, true, std::move(action));
}

std::unique_ptr<Timer> SystemClock::every(double interval, double tolerance, std::function<void()> action) {
    return std::make_unique<QtTimer>(interval, typeFor(interval, tolerance), false, std::move(action));
}

} // namespace orvane
