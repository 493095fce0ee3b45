#include "Model/AppModel.h"

#include "Integrations/ReminderService.h"
#include "Model/FailureText.h"
#include "Platform/Alerts.h"
#include "Platform/Clock.h"
#include "Platform/Executor.h"
#include "Platform/FilePanels.h"
#include "Platform/Platform.h"

#include <PlannerCore/BackupFile.h>

#include <QPointer>

#include <utility>

namespace orvane {

using planner::PlannerSnapshot;

namespace {

enum Answer { restore = 0, cancel = 1 };

} // namespace

/// One planner on its way to a backup file.
struct AppModel::Export {
    PlannerSnapshot planner;
    std::filesystem::path path;
    std::size_t bytes = 0;
    std::optional<QString> failure;

    void write() {
        try {
            // Whatever the model has changed since is freed here, not on the main thread.
            const auto written = std::exchange(planner, {});
            bytes = planner::writeBackup(written, path);
        } catch (const std::exception& error) {
            failure = failureText(error);
        }
    }
};

/// One restore, from the file to the store. It goes there also when the model is gone.
struct AppModel::Restoration {
    std::shared_ptr<planner::PlannerRepository> repository;
    PlannerSnapshot chosen;
    /// The planner to be replaced, afterwards the one that was.
    PlannerSnapshot current;
    std::optional<QString> failure;

    void read(const std::filesystem::path& path) {
        try {
            chosen = planner::readBackup(path);
        } catch (const planner::PlannerError& error) {
            failure = failureText(error);
        } catch (const std::exception&) {
            failure = tr("Choose a JSON backup exported by Orvane.");
        }
    }
    void replace() {
        try {
            repository->preserveBackup(current);
            repository->save(chosen);
        } catch (const std::exception& error) {
            failure = failureText(error);
        }
    }
};

void AppModel::beginTransfer() {
    transferring_ = true;
    if (suppressPanel) suppressPanel();
}

void AppModel::endTransfer() {
    transferring_ = false;
    if (restorePanel) restorePanel();
}

void AppModel::exportBackup() {
    if (!editable() || transferring_) return;
    beginTransfer();
    const auto day = QString::fromStdString(dayKey(platform_.clock.now()));
    platform_.filePanels.save(QStringLiteral("Orvane-") + day + QStringLiteral(".json"),
                              [self = QPointer(this)](const auto& path) {
                                  if (!self) return;
                                  if (path)
                                      self->writeExport(*path);
                                  else
                                      self->endTransfer();
                              });
}

void AppModel::writeExport(const std::filesystem::path& path) {
    const auto job = std::make_shared<Export>(Export{snapshot_, path, 0, std::nullopt});
    platform_.storeExecutor.run([job] { job->write(); },
                                [self = QPointer(this), job] {
                                    if (!self) return;
                                    if (job->failure) {
                                        self->setError(*job->failure);
                                    } else {
                                        // It is whole, but a restore would refuse it.
                                        if (job->bytes > planner::maximumBackupBytes)
                                            self->setError(tr("Backups must be smaller than 50 MB."));
                                        self->setNotice(tr("Backup exported."));
                                    }
                                    self->endTransfer();
                                });
}

void AppModel::importBackup() {
    if (!editable() || transferring_) return;
    beginTransfer();
    platform_.filePanels.open([self = QPointer(this)](const auto& path) {
        if (!self) return;
        if (path)
            self->readBackup(*path);
        else
            self->endTransfer();
    });
}

void AppModel::readBackup(const std::filesystem::path& path) {
    const auto restoration = std::make_shared<Restoration>();
    platform_.storeExecutor.run([restoration, path] { restoration->read(path); },
                                [self = QPointer(this), restoration] {
                                    if (!self) return;
                                    if (restoration->failure)
                                        self->failRestore(*restoration->failure);
                                    else
                                        self->confirmRestore(restoration);
                                });
}

void AppModel::confirmRestore(const std::shared_ptr<Restoration>& restoration) {
    const auto counted = [](const PlannerSnapshot& planner) { return QString::number(planner.tasks.size()); };
    platform_.alerts.ask(tr("Restore this planner backup?"),
                         tr("This replaces %1 tasks with %2 tasks. A backup of your current planner will be "
                            "kept on this Mac.")
                             .arg(counted(snapshot_), counted(restoration->chosen)),
                         {tr("Restore"), tr("Cancel")}, cancel,
                         [self = QPointer(this), restoration](int answer) {
                             if (!self) return;
                             if (answer == restore) return self->beginRestore(restoration);
                             self->letGo(restoration);
                             self->endTransfer();
                         });
}

void AppModel::beginRestore(const std::shared_ptr<Restoration>& restoration) {
    setRestoring(true);
    if (focus_->isRunning()) focus_->pause();
    // As `flush`, past the wait that holds everybody else back.
    noteSave_.reset();
    persistWaits_ = false;
    save();
    afterLastSave([this, restoration](bool saved) {
        if (saved) return replacePlanner(restoration);
        letGo(restoration);
        failRestore(tr("Your latest changes could not be saved first."));
    });
}

void AppModel::replacePlanner(const std::shared_ptr<Restoration>& restoration) {
    restoration->repository = repository_;
    restoration->current = snapshot_;
    platform_.storeExecutor.run([restoration] { restoration->replace(); },
                                [self = QPointer(this), restoration] {
                                    if (!self) return;
                                    if (!restoration->failure) self->adoptRestored(*restoration);
                                    self->letGo(restoration);
                                    if (restoration->failure)
                                        self->failRestore(*restoration->failure);
                                    else
                                        self->endRestore();
                                });
}

void AppModel::adoptRestored(Restoration& restoration) {
    restoration.current = std::exchange(snapshot_, restoration.chosen);
    durableTasks_ = snapshot_.tasks;
    tasks_.reset();
    // It belonged to the other planner.
    keepDeleted(std::nullopt);
    tasksEdited();
    resumeUnfinishedSession();
    if (focus_->recovered() && focus_->engine()) record(focus_->engine()->session);
    emit noteReplaced();
    reminders_->reconcile(snapshot_.tasks);
    setNotice(tr("Backup restored. Previous data was backed up locally."));
}

void AppModel::failRestore(const QString& description) {
    setError(tr("Restore failed; your current planner was preserved. ") + description);
    endRestore();
}

void AppModel::endRestore() {
    setRestoring(false);
    endTransfer();
    const bool persistWaits = std::exchange(persistWaits_, false);
    if (const auto waiting = std::exchange(flushesWaiting_, {}); !waiting.empty())
        // One for all of them: each would find the one behind it unsaved.
        flush([waiting](bool saved) {
            for (const auto& done : waiting) done(saved);
        });
    else if (persistWaits)
        persist();
}

void AppModel::setRestoring(bool restoring) {
    if (restoring == restoring_) return;
    restoring_ = restoring;
    emit restoringChanged();
}

void AppModel::letGo(const std::shared_ptr<Restoration>& restoration) {
    // Freeing a large planner takes a while, which the main thread does not have.
    platform_.storeExecutor.run(
        [restoration] {
            restoration->chosen = {};
            restoration->current = {};
        },
        [] {});
}

} // namespace orvane
