#pragma once

#include "Model/FocusController.h"
#include "Model/SettingsModel.h"
#include "Model/TaskListModel.h"
#include "Model/TaskTable.h"

#include <PlannerCore/PlannerRepository.h>
#include <PlannerCore/PlannerSnapshot.h>

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orvane {

class CalendarService;
class Clock;
class ReminderService;
class UpdateService;
struct Platform;

/// The application's one store of state: the planner in memory, the repository that keeps it, the
/// services, and the short texts that the views show. Views read its properties and call its
/// commands; each command edits the planner in memory and ends with `persist`. Main thread.
class AppModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    Q_PROPERTY(bool ready READ ready NOTIFY readyChanged)
    Q_PROPERTY(bool restoring READ restoring NOTIFY restoringChanged)
    Q_PROPERTY(bool storageFailed READ storageFailed NOTIFY storageFailedChanged)
    Q_PROPERTY(QString saveState READ saveState NOTIFY saveStateChanged)
    /// Empty when there is none.
    Q_PROPERTY(QString error READ errorText WRITE setErrorText NOTIFY errorChanged)
    /// The reminder service's own problem, apart from `error`; empty when there is none.
    Q_PROPERTY(QString reminderError READ reminderError NOTIFY reminderErrorChanged)
    Q_PROPERTY(QString notice READ noticeText WRITE setNoticeText NOTIFY noticeChanged)
    /// Whether the footer offers "Undo" for the last removed task.
    Q_PROPERTY(bool canUndoDelete READ canUndoDelete NOTIFY canUndoDeleteChanged)
    /// Rises each time the workspace is asked to put the keyboard into the add field.
    Q_PROPERTY(int focusRequest READ focusRequest NOTIFY focusRequestChanged)
    /// The key of the day whose note is being edited, "2026-03-07"; empty until ready.
    Q_PROPERTY(QString noteDay READ noteDay NOTIFY noteDayChanged)
    /// Whether the note's editor has the keyboard; the card says so. Such a note keeps its day at midnight.
    Q_PROPERTY(bool editingNote READ editingNote WRITE setEditingNote NOTIFY editingNoteChanged)
    /// Whether a session is about to start and waits for the answer about notifications.
    Q_PROPERTY(bool startingFocus READ startingFocus NOTIFY startingFocusChanged)
    Q_PROPERTY(orvane::SettingsModel* settings READ settings CONSTANT)
    Q_PROPERTY(orvane::FocusController* focus READ focus CONSTANT)
    Q_PROPERTY(orvane::TaskListModel* openTasks READ openTasks CONSTANT)
    Q_PROPERTY(orvane::TaskListModel* completedTasks READ completedTasks CONSTANT)

public:
    /// Builds everything with one reference to the platform, which must outlive this; opens no store.
    explicit AppModel(Platform& platform, QObject* parent = nullptr);
    ~AppModel() override;

    const planner::PlannerSnapshot& snapshot() const { return snapshot_; }
    /// The one source of time, for whoever reads the planner by days.
    Clock& clock() const;
    bool ready() const { return ready_; }
    bool restoring() const { return restoring_; }
    /// Whether opening the planner failed and nothing is loaded.
    bool storageFailed() const { return !repository_ && !ready_ && error_.has_value(); }
    const QString& saveState() const { return saveState_; }
    const std::optional<QString>& error() const { return error_; }
    const std::optional<QString>& notice() const { return notice_; }
    void setError(std::optional<QString> error);
    void setNotice(std::optional<QString> notice);
    QString reminderError() const;
    /// The user has read the reminder service's problem.
    Q_INVOKABLE void dismissReminderError();
    bool canUndoDelete() const { return deleted_.has_value(); }
    int focusRequest() const { return focusRequest_; }
    /// Asks the workspace to put the keyboard into the add field; the window coordinator and
    /// the focus card call it.
    Q_INVOKABLE void requestFocus();
    std::int64_t revision() const { return revision_; }
    std::int64_t lastSavedRevision() const { return lastSavedRevision_; }

    SettingsModel* settings() const { return settings_.get(); }
    FocusController* focus() const { return focus_.get(); }
    CalendarService* calendar() const { return calendar_.get(); }
    ReminderService* reminders() const { return reminders_.get(); }
    UpdateService* updates() const { return updates_.get(); }
    TaskListModel* openTasks() const { return openTasks_.get(); }
    TaskListModel* completedTasks() const { return completedTasks_.get(); }

    // Loading and saving.

    /// Opens the store off the main thread and brings the model to ready, or sets `error`. Does
    /// nothing while a load is under way or once ready.
    Q_INVOKABLE void load();
    /// As `load`; `done` is called on the main thread when the model is ready or has failed, also for a
    /// load that was already under way; at once when there is nothing to wait for. Never called when the
    /// model is gone by then.
    void load(std::function<void()> done);
    /// Hands a copy of the planner to the store, behind the saves already under way. Does nothing until
    /// ready. During a restore it waits for its end.
    Q_INVOKABLE void persist();
    /// Saves what there is and answers whether everything is on disk: at once when nothing could be
    /// started, otherwise when that save has settled, which waits for the end of a restore; never when the
    /// model is gone by then.
    void flush(std::function<void(bool)> done);

    // Tasks. A task is found by its id; an unknown id does nothing. Nothing is edited until ready.

    /// Trims the title and appends an open task; returns its id, or nothing when the title is empty or
    /// too long or the list is full (both set `error`) or the model is not ready.
    std::optional<planner::Uuid> addTask(const QString& title);
    void rename(const planner::PlannerTask& task, const QString& title);
    void toggle(const planner::PlannerTask& task);
    /// Removes the task and keeps it, as the list had it, for `undoDelete`.
    void deleteTask(const planner::PlannerTask& task);
    Q_INVOKABLE void undoDelete();
    /// Puts a task before `target`, at the end when the target is missing, and renumbers the list.
    void moveTask(const planner::Uuid& moved, const planner::Uuid& before);
    /// Moves a task past its neighbour `offset` places away among the open tasks.
    void moveTask(const planner::PlannerTask& task, int offset);
    /// The open tasks in the planner's order. Costs a walk over all tasks: views read `openTasks`.
    std::vector<planner::PlannerTask> incompleteTasks() const;
    /// The title of that task; empty when there is none or it is completed.
    Q_INVOKABLE QString openTaskTitle(const QString& taskId);
    /// Whether `moment` is still to come; false for an invalid one.
    Q_INVOKABLE bool isUpcoming(const QDateTime& moment) const;

    // The same commands for views, which know tasks by the text of their id. `addTask` returns the new
    // id's text or an empty one.

    Q_INVOKABLE QString addTaskTitled(const QString& title);
    Q_INVOKABLE void renameTask(const QString& taskId, const QString& title);
    Q_INVOKABLE void toggleTask(const QString& taskId);
    Q_INVOKABLE void deleteTask(const QString& taskId);
    Q_INVOKABLE void moveTaskBefore(const QString& taskId, const QString& targetId);
    Q_INVOKABLE void moveTaskBy(const QString& taskId, int offset);

    // Daily notes.

    planner::Instant noteDate() const { return noteDate_; }
    QString noteDay() const;
    /// The text of the note being edited; empty when the day has none. Costs a copy of the text.
    Q_INVOKABLE QString noteText() const;
    /// Replaces the text of that note in memory and saves it once nothing has been typed for 0.4 seconds.
    /// A text of more than 5,000,000 bytes of UTF-8 sets `error` and changes nothing.
    Q_INVOKABLE void updateNote(const QString& text);
    /// Saves what was typed and shows the note of the day that contains `date`.
    void selectNoteDay(planner::Instant date);
    /// As `selectNoteDay` with the day `days` after (before, when negative) the present one.
    Q_INVOKABLE void selectNoteDayBy(int days);
    bool editingNote() const { return editingNote_; }
    void setEditingNote(bool editing);

    // Backups. Only one of the two is under way at a time: a further call does nothing, nor does one before
    // the model is ready.

    /// Asks where to and writes the planner there as a backup; `notice` or `error` tell how it went.
    Q_INVOKABLE void exportBackup();
    /// Asks for a backup and, once the user has agreed, puts it in the place of the planner: `restoring` is
    /// true meanwhile. The planner it replaces is kept as a backup beside the store. `notice` or `error` tell
    /// how it went; after an error nothing was replaced.
    Q_INVOKABLE void importBackup();

    // Focus.

    /// Starts a session on an open task. A countdown first asks for notifications where that has not been
    /// decided; without them it starts all the same, with a notice. Nothing while another start waits.
    void beginFocus(const planner::PlannerTask& task, planner::FocusMode mode, std::int64_t minutes);
    /// The same for views; `mode` is "countdown" or "stopwatch", an unknown word or task does nothing.
    Q_INVOKABLE void beginFocusOn(const QString& taskId, const QString& mode, int minutes);
    bool startingFocus() const { return startingFocus_; }

    // Integrations.

    /// Asks for access to the calendars, with the panel out of the way meanwhile.
    Q_INVOKABLE void connectCalendar();
    /// Asks for notifications, then schedules the reminders of the stored tasks.
    Q_INVOKABLE void enableReminders();

    /// Midnight passed, the machine woke or the time zone changed: the note of what was today becomes that
    /// of the new today, unless it is being edited. Any other note keeps its day, also in another zone.
    void followToday();

    // Panel commands: callbacks that the window coordinator sets; calling an unset one does nothing.

    std::function<void()> openDashboard;
    std::function<void()> openSettings;
    std::function<void()> dismissPanel;
    std::function<void()> suppressPanel;
    std::function<void()> restorePanel;
    Q_INVOKABLE void requestDashboard() const;
    Q_INVOKABLE void requestSettings() const;
    Q_INVOKABLE void requestDismissal() const;

    QString errorText() const { return error_.value_or(QString()); }
    QString noticeText() const { return notice_.value_or(QString()); }
    /// An empty text clears it.
    void setErrorText(const QString& text);
    void setNoticeText(const QString& text);

signals:
    void readyChanged();
    void restoringChanged();
    void storageFailedChanged();
    void saveStateChanged();
    void errorChanged();
    void reminderErrorChanged();
    void noticeChanged();
    void canUndoDeleteChanged();
    void focusRequestChanged();
    void snapshotChanged();
    /// Another day's note is being edited.
    void noteDayChanged();
    /// One of its editors gave the note being edited a new text; the others show it, too.
    void noteEdited();
    /// The note being edited has another text than its editor gave: the planner was replaced, or a text was
    /// refused.
    void noteReplaced();
    void editingNoteChanged();
    void startingFocusChanged();
    /// Today is another day than before.
    void todayChanged();

private:
    struct Export;
    struct Opening;
    struct Restoration;
    struct SaveJob;

    /// Whether commands may change the planner.
    bool editable() const { return ready_ && !restoring_; }
    void openStore(std::filesystem::path folder);
    void adopt(Opening& opening);
    void failToOpen(const QString& description);
    void endLoading();
    void wireFocus();
    void resumeUnfinishedSession();
    void record(const planner::FocusSession& session);
    void announceTimeUp(const planner::FocusSession& session);
    std::size_t notePosition(const std::string& day) const;
    std::string dayKey(planner::Instant instant) const;
    void keepNoteDay();
    void setStartingFocus(bool starting);
    void askForNotifications(std::function<void()> done);
    void startFocus(const planner::Uuid& taskId, planner::FocusMode mode, std::int64_t minutes);
    bool focusIsOn(const planner::Uuid& taskId) const;
    void moveTask(const planner::Uuid& moved, const std::optional<planner::Uuid>& before);
    std::optional<planner::PlannerTask> taskNamed(const QString& taskId);
    void save();
    void afterLastSave(std::function<void(bool)> done);
    void settle(const SaveJob& job);
    void beginTransfer();
    void endTransfer();
    void writeExport(const std::filesystem::path& path);
    void readBackup(const std::filesystem::path& path);
    void confirmRestore(const std::shared_ptr<Restoration>& restoration);
    void beginRestore(const std::shared_ptr<Restoration>& restoration);
    void replacePlanner(const std::shared_ptr<Restoration>& restoration);
    void adoptRestored(Restoration& restoration);
    void failRestore(const QString& description);
    void endRestore();
    void setRestoring(bool restoring);
    void letGo(const std::shared_ptr<Restoration>& restoration);
    void tasksEdited();
    void keepDeleted(std::optional<planner::PlannerTask> task);
    void setSaveState(const QString& text);
    void updateStorageFailed();

    Platform& platform_;
    planner::PlannerSnapshot snapshot_;
    /// Edits `snapshot_.tasks`.
    TaskTable tasks_{snapshot_.tasks};
    bool ready_ = false;
    bool restoring_ = false;
    /// An export or a restore is under way, from its file panel to its end.
    bool transferring_ = false;
    /// Who wants the planner saved once the restore is over: `persist` and each `flush`.
    bool persistWaits_ = false;
    std::vector<std::function<void(bool)>> flushesWaiting_;
    bool storageFailedBefore_ = false;
    QString saveState_;
    std::optional<QString> error_;
    std::optional<QString> notice_;
    int focusRequest_ = 0;
    planner::Instant noteDate_;
    /// The key of that day. Kept, since another time zone would read another day from the same instant.
    std::string noteKey_;
    /// What today was when last looked at.
    std::string today_;
    /// The note's save that waits for a pause in typing.
    std::unique_ptr<Timer> noteSave_;
    bool editingNote_ = false;
    bool startingFocus_ = false;
    std::unique_ptr<SettingsModel> settings_;
    std::unique_ptr<FocusController> focus_;
    std::unique_ptr<CalendarService> calendar_;
    std::unique_ptr<ReminderService> reminders_;
    std::unique_ptr<UpdateService> updates_;
    std::unique_ptr<TaskListModel> openTasks_;
    std::unique_ptr<TaskListModel> completedTasks_;
    /// Shared with the saves in the air, which may outlive the model.
    std::shared_ptr<planner::PlannerRepository> repository_;
    bool loading_ = false;
    /// Whom to tell when the load under way is over.
    std::vector<std::function<void()>> awaitingLoad_;
    /// The most recent save; each waits for the one before it.
    std::shared_ptr<SaveJob> saving_;
    std::int64_t revision_ = 0;
    std::int64_t lastSavedRevision_ = 0;
    /// The task list last handed to the reminder service; none until the first successful save.
    std::optional<planner::RecordList<planner::PlannerTask>> reconciledTasks_;
    /// The task list as the store holds it.
    planner::RecordList<planner::PlannerTask> durableTasks_;
    /// The task removed last, kept for "Undo".
    std::optional<planner::PlannerTask> deleted_;
};

} // namespace orvane
