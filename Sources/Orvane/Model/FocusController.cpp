#include "Model/FocusController.h"

#include <PlannerCore/Checked.h>
#include <PlannerCore/PlannerDates.h>

#include <string_view>
#include <utility>

namespace orvane {
namespace {

constexpr double tickInterval = 1;
constexpr double tickTolerance = 0.1;
/// Bounds what a crash can lose of a running session.
constexpr std::int64_t ticksBetweenCheckpoints = 15;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

} // namespace

using planner::FocusMode;
using planner::FocusSession;
using planner::FocusStatus;

FocusController::FocusController(Clock& clock, QObject* parent) : QObject(parent), clock_(clock) {}

QString FocusController::timeText() const {
    return clockText(seconds_);
}

QString FocusController::clockText(double seconds) const {
    return QString::fromStdString(planner::dates::clock(seconds));
}

QString FocusController::statusText() const {
    if (!engine_) return {};
    return text(planner::rawValue(engine_->session.status));
}

QString FocusController::modeText() const {
    return engine_ ? text(planner::rawValue(engine_->session.mode)) : QString();
}

double FocusController::target() const {
    return engine_ ? engine_->session.target : 0;
}

QString FocusController::taskTitle() const {
    return engine_ ? text(engine_->session.title) : QString();
}

bool FocusController::isRunning() const {
    return status() == FocusStatus::running;
}

bool FocusController::active() const {
    return engine_ && engine_->session.status != FocusStatus::finished;
}

void FocusController::start(const planner::PlannerTask& task, FocusMode mode, std::int64_t minutes) {
    finish();
    const auto target = double(planner::checkedMultiply(minutes, 60));
    const auto now = clock_.now();
    engine_.emplace(FocusSession(task.id, task.title, mode, target, now), now, clock_.uptime(), false);
    emit engineChanged();
    setRecovered(false);
    save();
    beginTicking();
    updateDisplay();
}

void FocusController::pause() {
    const auto before = status();
    if (engine_) {
        engine_->pause(clock_.now(), clock_.uptime());
        emit engineChanged();
    }
    ticker_.reset();
    save();
    updateDisplay();
    notifyIfDeadlineReached(before);
}

void FocusController::resume() {
    if (engine_) {
        engine_->resume(clock_.now(), clock_.uptime());
        emit engineChanged();
    }
    setRecovered(false);
    save();
    beginTicking();
    updateDisplay();
}

void FocusController::finish() {
    const auto before = status();
    if (engine_ && before != FocusStatus::finished) {
        engine_->finish(clock_.now(), clock_.uptime());
        engine_->session.status = FocusStatus::finished;
        emit engineChanged();
    }
    ticker_.reset();
    save();
    updateDisplay();
    notifyIfDeadlineReached(before);
}

void FocusController::checkpoint() {
    const auto before = status();
    if (engine_) {
        engine_->checkpoint(clock_.now(), clock_.uptime());
        emit engineChanged();
    }
    save();
    updateDisplay();
    notifyIfDeadlineReached(before);
}

void FocusController::restore(std::optional<FocusSession> session) {
    ticker_.reset();
    const auto recovered = session && session->status == FocusStatus::running;
    if (session)
        engine_.emplace(*std::move(session), clock_.now(), clock_.uptime(), true);
    else
        engine_.reset();
    emit engineChanged();
    setRecovered(recovered);
    updateDisplay();
}

void FocusController::beginTicking() {
    ticker_.reset();
    ticks_ = 0;
    if (isRunning()) ticker_ = clock_.every(tickInterval, tickTolerance, [this] { tick(); });
}

void FocusController::tick() {
    updateDisplay();
    ++ticks_;
    const auto timeIsUp = engine_ && engine_->session.mode == FocusMode::countdown && seconds_ <= 0;
    if (!timeIsUp && ticks_ % ticksBetweenCheckpoints != 0) return;
    checkpoint();
    if (!isRunning()) ticker_.reset();
}

void FocusController::updateDisplay() {
    const auto seconds = engine_ ? engine_->displayed(clock_.uptime()) : 0;
    if (seconds == seconds_) return;
    seconds_ = seconds;
    emit secondsChanged();
}

// The callbacks get a copy: they may start or restore another session.

void FocusController::notifyIfDeadlineReached(std::optional<FocusStatus> previous) {
    if (!previous || !engine_ || !engine_->finishedAtDeadline(*previous) || !onCompleted) return;
    const auto session = engine_->session;
    onCompleted(session);
}

void FocusController::save() {
    if (!engine_ || !onCheckpoint) return;
    const auto session = engine_->session;
    onCheckpoint(session);
}

std::optional<FocusStatus> FocusController::status() const {
    return engine_ ? std::optional(engine_->session.status) : std::nullopt;
}

void FocusController::setRecovered(bool recovered) {
    if (recovered == recovered_) return;
    recovered_ = recovered;
    emit recoveredChanged();
}

} // namespace orvane
