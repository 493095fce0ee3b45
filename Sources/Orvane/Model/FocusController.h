#pragma once

#include "Platform/Clock.h"

#include <PlannerCore/FocusEngine.h>
#include <PlannerCore/PlannerTask.h>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace orvane {

/// Drives one focus session in real time: shows it once a second, closes it into a segment every 15
/// seconds, and tells its owner what must be saved and when a countdown has run out. Main thread.
class FocusController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    Q_PROPERTY(double seconds READ seconds NOTIFY secondsChanged)
    Q_PROPERTY(QString timeText READ timeText NOTIFY secondsChanged)
    /// "" without a session, otherwise "running", "paused" or "finished".
    Q_PROPERTY(QString status READ statusText NOTIFY engineChanged)
    /// Whether there is a session that is running or paused.
    Q_PROPERTY(bool active READ active NOTIFY engineChanged)
    /// "" without a session, otherwise "countdown" or "stopwatch".
    Q_PROPERTY(QString mode READ modeText NOTIFY engineChanged)
    /// The planned seconds of a countdown; 0 without a session.
    Q_PROPERTY(double target READ target NOTIFY engineChanged)
    /// The title that the session's task had when it began; empty without one.
    Q_PROPERTY(QString taskTitle READ taskTitle NOTIFY engineChanged)
    Q_PROPERTY(bool recovered READ recovered NOTIFY recoveredChanged)

public:
    /// `clock` must outlive this.
    explicit FocusController(Clock& clock, QObject* parent = nullptr);

    const std::optional<planner::FocusEngine>& engine() const { return engine_; }
    /// Time left for a countdown, time spent for a stopwatch, 0 without a session.
    double seconds() const { return seconds_; }
    QString timeText() const;
    QString statusText() const;
    /// Whether the session was found running at launch and has been paused since.
    bool recovered() const { return recovered_; }
    bool isRunning() const;
    bool active() const;
    QString modeText() const;
    double target() const;
    QString taskTitle() const;
    /// `seconds` as a timer shows them: "25:00", "1:05:48".
    Q_INVOKABLE QString clockText(double seconds) const;

    /// Begins a session on `task`, after finishing an open one. Minutes whose seconds overflow end the
    /// program with a message.
    void start(const planner::PlannerTask& task, planner::FocusMode mode, std::int64_t minutes);
    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    /// Ends the session; one that is finished already is only saved and shown again.
    Q_INVOKABLE void finish();
    /// Closes the running stretch into a segment and has it saved.
    void checkpoint();
    /// Takes over a stored session, paused; none clears the controller. Nothing is saved.
    void restore(std::optional<planner::FocusSession> session);

    /// Called whenever the session must be saved.
    std::function<void(const planner::FocusSession&)> onCheckpoint;
    /// Called when a countdown has run out.
    std::function<void(const planner::FocusSession&)> onCompleted;

signals:
    void engineChanged();
    void secondsChanged();
    void recoveredChanged();

private:
    void beginTicking();
    void tick();
    void updateDisplay();
    void notifyIfDeadlineReached(std::optional<planner::FocusStatus> previous);
    void save();
    std::optional<planner::FocusStatus> status() const;
    void setRecovered(bool recovered);

    Clock& clock_;
    std::optional<planner::FocusEngine> engine_;
    double seconds_ = 0;
    bool recovered_ = false;
    std::unique_ptr<Timer> ticker_;
    std::int64_t ticks_ = 0;
};

} // namespace orvane
