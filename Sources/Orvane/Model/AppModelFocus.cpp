#include "Model/AppModel.h"

#include "Integrations/ReminderService.h"

#include <QPointer>

namespace orvane {

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

bool AppModel::focusIsOn(const planner::Uuid& taskId) const {
    return focus_->engine() && focus_->engine()->session.taskID == taskId;
}

} // namespace orvane
