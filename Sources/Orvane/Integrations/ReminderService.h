#pragma once

#include "Platform/Clock.h"
#include "Platform/NotificationCenter.h"

#include <PlannerCore/FocusSession.h>
#include <PlannerCore/PlannerTask.h>
#include <PlannerCore/RecordList.h>
#include <PlannerCore/Uuid.h>

#include <QHash>
#include <QObject>
#include <QString>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace orvane {

/// Keeps the scheduled notifications equal to what the tasks ask for, delivers the alert at the end of
/// a focus session, and tells which notification was clicked. Main thread.
class ReminderService : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this.
    ReminderService(NotificationCenter& center, const Clock& clock, QObject* parent = nullptr);
    ~ReminderService() override;

    /// As the last `refresh` found it.
    NotificationAuthorization status() const { return status_; }
    /// Whether `status` lets notifications be shown.
    bool mayDeliver() const;
    /// The last problem, as a text for the user.
    const std::optional<QString>& error() const { return error_; }
    /// The user has read the problem: forgets it.
    void dismissError() { setError(std::nullopt); }

    /// Reads the status; `done` is called afterwards, not when this is gone by then.
    void refresh(std::function<void()> done);

    /// Brings the pending requests in line with the open tasks whose reminder is still to come. Returns
    /// at once; calls are worked off one after another, in order. A reminder that cannot be scheduled
    /// sets `error`.
    void reconcile(const planner::RecordList<planner::PlannerTask>& tasks);

    /// Shows the alert for a countdown that ran out and answers whether it was handed over; a failure
    /// sets `error`. No answer when this is gone by then.
    void notifyFocusFinished(const planner::FocusSession& session, std::function<void(bool)> done);

    /// Routes a click on a notification with this user info to one of the two callbacks.
    void open(const QHash<QString, QString>& userInfo) const;

    /// Called for a task's notification; without an id when the notification names none.
    std::function<void(std::optional<planner::Uuid>)> onOpen;
    std::function<void()> onOpenFocus;

signals:
    void statusChanged();
    void errorChanged();

private:
    struct Reconciliation;

    void startNext();
    void choose(const std::shared_ptr<Reconciliation>& job);
    void compare(const std::shared_ptr<Reconciliation>& job, const QList<NotificationRequest>& pending);
    void addNext(const std::shared_ptr<Reconciliation>& job);
    void setError(std::optional<QString> error);

    NotificationCenter& center_;
    const Clock& clock_;
    NotificationAuthorization status_ = NotificationAuthorization::notDetermined;
    std::optional<QString> error_;
    /// The lists still to be worked off; the first one is under way while `working_`.
    std::deque<planner::RecordList<planner::PlannerTask>> waiting_;
    bool working_ = false;
};

} // namespace orvane
