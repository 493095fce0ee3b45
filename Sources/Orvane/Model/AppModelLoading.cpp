#include "Model/AppModel.h"

#include "Integrations/CalendarService.h"
#include "Integrations/ReminderService.h"
#include "Model/FailureText.h"
#include "Platform/DataFolder.h"
#include "Platform/Executor.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"

#include <QPointer>

#include <utility>

namespace orvane {

using planner::FocusStatus;
using planner::PlannerRepository;

/// What opening the store gave: a repository and its planner, or the failure's text.
struct AppModel::Opening {
    std::shared_ptr<PlannerRepository> repository;
    planner::PlannerSnapshot snapshot;
    std::optional<QString> failure;
};

void AppModel::load() {
    load({});
}

void AppModel::load(std::function<void()> done) {
    if (ready_) {
        if (done) done();
        return;
    }
    if (done) awaitingLoad_.push_back(std::move(done));
    if (loading_) return;
    loading_ = true;
    try {
        openStore(platform_.dataFolder.open());
    } catch (const std::exception& failure) {
        failToOpen(failureText(failure));
    }
}

void AppModel::openStore(std::filesystem::path folder) {
    auto opening = std::make_shared<Opening>();
    auto open = [opening, folder = std::move(folder)] {
        try {
            auto repository = std::make_shared<PlannerRepository>(folder);
            opening->snapshot = repository->load();
            opening->repository = std::move(repository);
        } catch (const std::exception& failure) {
            opening->failure = failureText(failure);
        }
    };
    platform_.storeExecutor.run(std::move(open), [self = QPointer(this), opening] {
        if (!self) return;
        if (opening->failure)
            self->failToOpen(*opening->failure);
        else
            self->adopt(*opening);
    });
}

void AppModel::adopt(Opening& opening) {
    // Only now: the first calendar reads the list of all zones, which would hold up the first frame.
    if (noteKey_.empty()) today_ = noteKey_ = dayKey(noteDate_);
    repository_ = std::move(opening.repository);
    snapshot_ = std::move(opening.snapshot);
    durableTasks_ = snapshot_.tasks;
    tasks_.reset();
    tasksEdited();
    wireFocus();
    resumeUnfinishedSession();
    ready_ = true;
    emit readyChanged();
    setSaveState(tr("Saved on this Mac"));
    updateStorageFailed();
    if (focus_->recovered() && focus_->engine()) record(focus_->engine()->session);
    calendar_->refresh();
    reminders_->reconcile(snapshot_.tasks);
    endLoading();
}

void AppModel::failToOpen(const QString& description) {
    platform_.log.error("Persistence", "Store open failed: ", description.toStdString());
    setError(tr("Your planner could not be opened. Your existing data has been preserved. ") + description);
    endLoading();
}

void AppModel::endLoading() {
    loading_ = false;
    for (const auto& done : std::exchange(awaitingLoad_, {})) done();
}

void AppModel::resumeUnfinishedSession() {
    const auto& sessions = snapshot_.sessions;
    const auto unfinished =
        sessions.find([](const auto& session) { return session.status != FocusStatus::finished; });
    focus_->restore(unfinished < sessions.size() ? std::optional(sessions[unfinished]) : std::nullopt);
}

} // namespace orvane
