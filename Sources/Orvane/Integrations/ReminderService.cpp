#include "Integrations/ReminderService.h"

#include <QPointer>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace orvane {

using planner::FocusSession;
using planner::PlannerTask;
using planner::RecordList;
using planner::Uuid;

namespace {

const QString taskPrefix = QStringLiteral("task-");
const QString taskKey = QStringLiteral("taskID");
const QString focusKey = QStringLiteral("focusSession");

QString text(const Uuid& id) {
    return QString::fromStdString(id.text());
}

NotificationRequest requestFor(const PlannerTask& task, const QString& title) {
    return {.identifier = taskPrefix + text(task.id),
            .title = title,
            .body = QString::fromStdString(task.title),
            .userInfo = {{taskKey, text(task.id)}},
            .fireAt = planner::Instant{std::floor(task.reminderAt->seconds)}};
}

/// Whether `pending` will remind of `task` at the right second.
bool isRight(const NotificationRequest& pending, const PlannerTask& task) {
    return pending.body == QString::fromStdString(task.title) && pending.fireAt &&
           std::abs(*pending.fireAt - *task.reminderAt) < 1.0;
}

} // namespace

/// One `reconcile` under way.
struct ReminderService::Reconciliation {
    /// The tasks to be reminded of.
    std::vector<PlannerTask> wanted;
    /// What has to be added for them, and how far that has come.
    std::vector<NotificationRequest> missing;
    std::size_t added = 0;
};

ReminderService::ReminderService(NotificationCenter& center, const Clock& clock, QObject* parent)
    : QObject(parent), center_(center), clock_(clock) {}

ReminderService::~ReminderService() = default;

bool ReminderService::mayDeliver() const {
    return status_ == NotificationAuthorization::authorized ||
           status_ == NotificationAuthorization::provisional;
}

void ReminderService::setError(std::optional<QString> error) {
    if (error == error_) return;
    error_ = std::move(error);
    emit errorChanged();
}

void ReminderService::refresh(std::function<void()> done) {
    center_.authorization(
        [self = QPointer(this), done = std::move(done)](NotificationAuthorization authorization) {
            if (!self) return;
            if (std::exchange(self->status_, authorization) != authorization) emit self->statusChanged();
            if (done) done();
        });
}

void ReminderService::reconcile(const RecordList<PlannerTask>& tasks) {
    waiting_.push_back(tasks);
    if (!working_) startNext();
}

void ReminderService::startNext() {
    working_ = !waiting_.empty();
    if (!working_) return;
    auto job = std::make_shared<Reconciliation>();
    refresh([this, job] { choose(job); });
}

void ReminderService::choose(const std::shared_ptr<Reconciliation>& job) {
    const auto now = clock_.now();
    for (const auto& task : waiting_.front())
        if (task.reminderAt && !task.completedAt && *task.reminderAt > now) job->wanted.push_back(task);
    waiting_.pop_front();
    center_.pendingRequests([self = QPointer(this), job](const QList<NotificationRequest>& pending) {
        if (self) self->compare(job, pending);
    });
}

void ReminderService::compare(const std::shared_ptr<Reconciliation>& job,
                              const QList<NotificationRequest>& pending) {
    QHash<QString, const NotificationRequest*> present;
    for (const auto& request : pending) present.insert(request.identifier, &request);
    QSet<QString> wanted;
    for (const auto& task : job->wanted) {
        const auto identifier = taskPrefix + text(task.id);
        wanted.insert(identifier);
        const auto* found = present.value(identifier);
        if (!found || !isRight(*found, task)) job->missing.push_back(requestFor(task, tr("A little nudge")));
    }
    QStringList stale;
    for (const auto& request : pending)
        if (request.identifier.startsWith(taskPrefix) && !wanted.contains(request.identifier))
            stale.append(request.identifier);
    if (!stale.isEmpty()) center_.removePending(stale);
    if (!mayDeliver()) return startNext();
    setError(std::nullopt);
    addNext(job);
}

void ReminderService::addNext(const std::shared_ptr<Reconciliation>& job) {
    if (job->added == job->missing.size()) return startNext();
    center_.add(
        job->missing[job->added++], [self = QPointer(this), job](const std::optional<QString>& failure) {
            if (!self) return;
            if (failure)
                self->setError(tr("The task is saved, but its reminder could not be scheduled: ") + *failure);
            self->addNext(job);
        });
}

void ReminderService::notifyFocusFinished(const FocusSession& session, std::function<void(bool)> done) {
    NotificationRequest alert{.identifier = QStringLiteral("focus-") + text(session.id),
                              .title = tr("Focus time is up"),
                              .body = tr("Your focus session is complete."),
                              .userInfo = {{focusKey, text(session.id)}},
                              .fireAt = std::nullopt};
    refresh([this, alert = std::move(alert), done = std::move(done)] {
        if (!mayDeliver()) {
            setError(tr("Notifications are disabled for Orvane."));
            return done(false);
        }
        center_.add(alert, [self = QPointer(this), done](const std::optional<QString>& failure) {
            if (!self) return;
            if (failure)
                self->setError(tr("The focus timer finished, but its notification could not be delivered: ") +
                               *failure);
            done(!failure);
        });
    });
}

void ReminderService::open(const QHash<QString, QString>& userInfo) const {
    if (userInfo.contains(focusKey)) {
        if (onOpenFocus) onOpenFocus();
        return;
    }
    if (onOpen) onOpen(Uuid::parse(userInfo.value(taskKey).toStdString()));
}

} // namespace orvane
