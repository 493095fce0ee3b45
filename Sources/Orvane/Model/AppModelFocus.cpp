#include "Model/AppModel.h"

#include "Integrations/CalendarService.h"
#include "Integrations/ReminderService.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Platform.h"

#include <QPointer>

#include <utility>

namespace orvane {

using planner::FocusMode;
using planner::FocusSession;

void AppModel::wireFocus() {
    focus_->onCheckpoint = [self = QPointer(this)](const FocusSession& session) {
        if (self) self->record(session);
    };
    focus_->onCompleted = [self = QPointer(this)](const FocusSession& session) {
        if (self) self->announceTimeUp(session);
    };
}

void AppModel::record(const FocusSession& session) {
    if (!ready_) return;
    auto& sessions = snapshot_.sessions;
    // From the end: the session under way is nearly always the youngest.
    auto index = sessions.size();
    while (index > 0 && sessions[index - 1].id != session.id) --index;
    if (index == 0)
        sessions.push_back(session);
    else if (sessions[index - 1] != session)
        sessions.replace(index - 1, session);
    emit snapshotChanged();
    persist();
}

void AppModel::announceTimeUp(const FocusSession& session) {
    reminders_->notifyFocusFinished(session, [self = QPointer(this)](bool delivered) {
        if (self && !delivered)
            self->setNotice(tr("Focus time is up, but its notification could not be delivered."));
    });
}

void AppModel::setStartingFocus(bool starting) {
    if (starting == startingFocus_) return;
    startingFocus_ = starting;
    emit startingFocusChanged();
}

void AppModel::askForNotifications(std::function<void()> done) {
    platform_.notifications.requestAuthorization([self = QPointer(this), done = std::move(done)] {
        if (self) self->reminders_->refresh(done);
    });
}

void AppModel::beginFocus(const planner::PlannerTask& task, FocusMode mode, std::int64_t minutes) {
    if (!editable() || startingFocus_) return;
    setStartingFocus(true);
    auto start = [self = QPointer(this), id = task.id, mode, minutes] {
        if (self) self->startFocus(id, mode, minutes);
    };
    if (mode == FocusMode::stopwatch) return start();
    auto startOrWarn = [self = QPointer(this), start = std::move(start)] {
        if (!self) return;
        if (!self->reminders_->mayDeliver())
            self->setNotice(tr("Focus timer started. Enable Orvane notifications in System Settings to get a "
                               "time-up alert."));
        start();
    };
    reminders_->refresh([self = QPointer(this), startOrWarn = std::move(startOrWarn)] {
        if (!self) return;
        if (self->reminders_->status() == NotificationAuthorization::notDetermined)
            self->askForNotifications(startOrWarn);
        else
            startOrWarn();
    });
}

void AppModel::startFocus(const planner::Uuid& taskId, FocusMode mode, std::int64_t minutes) {
    setStartingFocus(false);
    if (!editable()) return;
    // It may have been completed or removed while the user was asked.
    const auto position = tasks_.find(taskId);
    if (!position || snapshot_.tasks[*position].isComplete()) return;
    const auto task = snapshot_.tasks[*position];
    focus_->start(task, mode, minutes);
}

void AppModel::beginFocusOn(const QString& taskId, const QString& mode, int minutes) {
    const auto task = taskNamed(taskId);
    const auto known = planner::focusMode(mode.toStdString());
    if (task && known) beginFocus(*task, *known, minutes);
}

void AppModel::connectCalendar() {
    if (suppressPanel) suppressPanel();
    calendar_->connect([self = QPointer(this)] {
        if (self && self->restorePanel) self->restorePanel();
    });
}

void AppModel::enableReminders() {
    if (suppressPanel) suppressPanel();
    askForNotifications([self = QPointer(this)] {
        if (!self) return;
        self->reminders_->reconcile(self->durableTasks_);
        if (self->restorePanel) self->restorePanel();
    });
}

bool AppModel::focusIsOn(const planner::Uuid& taskId) const {
    return focus_->engine() && focus_->engine()->session.taskID == taskId;
}

} // namespace orvane
