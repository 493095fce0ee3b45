#include "Model/AppModel.h"

#include "Integrations/ReminderService.h"
#include "Model/FailureText.h"
#include "Platform/Executor.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"

#include <PlannerCore/Checked.h>

#include <QPointer>

#include <utility>

namespace orvane {

/// One copy of the planner on its way to the store. It goes there also when the model is gone.
struct AppModel::SaveJob {
    QPointer<AppModel> model;
    Executor& executor;
    std::shared_ptr<planner::PlannerRepository> repository;
    planner::PlannerSnapshot snapshot;
    std::int64_t revision;
    std::optional<QString> failure;
    bool finished = false;
    std::vector<std::function<void()>> waiting;

    static void start(const std::shared_ptr<SaveJob>& job);
    void write();
    void finish();
    /// Calls `action` once the job is over, at once when it is.
    void whenFinished(std::function<void()> action);
};

void AppModel::SaveJob::start(const std::shared_ptr<SaveJob>& job) {
    job->executor.run([job] { job->write(); },
                      [job] {
                          if (job->model) job->model->settle(*job);
                          job->finish();
                      });
}

void AppModel::SaveJob::write() {
    try {
        repository->save(snapshot);
    } catch (const std::exception& error) {
        failure = failureText(error);
    }
}

void AppModel::SaveJob::finish() {
    finished = true;
    // The model remembers its last job for as long as it lives; the planner it carried is not needed.
    snapshot = {};
    repository.reset();
    for (const auto& action : std::exchange(waiting, {})) action();
}

void AppModel::SaveJob::whenFinished(std::function<void()> action) {
    if (finished)
        action();
    else
        waiting.push_back(std::move(action));
}

void AppModel::persist() {
    if (!ready_ || !repository_) return;
    // The planner of before would be written over the restored one.
    if (restoring_)
        persistWaits_ = true;
    else
        save();
}

void AppModel::save() {
    revision_ = planner::checkedAdd(revision_, 1);
    auto job = std::make_shared<SaveJob>(
        SaveJob{this, platform_.storeExecutor, repository_, snapshot_, revision_, std::nullopt, false, {}});
    const auto predecessor = std::exchange(saving_, job);
    setSaveState(tr("Saving…"));
    if (predecessor)
        predecessor->whenFinished([job] { SaveJob::start(job); });
    else
        SaveJob::start(job);
}

void AppModel::settle(const SaveJob& job) {
    if (job.failure) {
        setSaveState(tr("Not saved"));
        setError(tr("Your changes are still in memory. Retry saving or export a backup. ") + *job.failure);
        platform_.log.error("Persistence", "Save failed: ", job.failure->toStdString());
        // No more focus time may pile up while it cannot be kept.
        if (focus_->isRunning()) focus_->pause();
        return;
    }
    lastSavedRevision_ = job.revision;
    durableTasks_ = job.snapshot.tasks;
    // A note that waits for a pause in typing is a newer change, too.
    if (revision_ == job.revision && !noteSave_) setSaveState(tr("Saved on this Mac"));
    if (reconciledTasks_ == job.snapshot.tasks) return;
    reminders_->reconcile(job.snapshot.tasks);
    reconciledTasks_ = job.snapshot.tasks;
}

void AppModel::flush(std::function<void(bool)> done) {
    if (restoring_) return flushesWaiting_.push_back(std::move(done));
    noteSave_.reset();
    persist();
    if (!saving_) return done(lastSavedRevision_ == revision_);
    afterLastSave(std::move(done));
}

void AppModel::afterLastSave(std::function<void(bool)> done) {
    saving_->whenFinished([self = QPointer(this), done = std::move(done)] {
        if (self) done(self->lastSavedRevision_ == self->revision_);
    });
}

} // namespace orvane
