#pragma once

#include <PlannerCore/PlannerTask.h>
#include <PlannerCore/RecordList.h>

#include <QAbstractListModel>

#include <vector>

namespace orvane {

/// The open or the completed tasks as rows for a view, in the planner's order. An edit changes only
/// the rows it touches: rows are inserted, removed, moved and updated, never reset. Main thread.
class TaskListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum class Shown { open, completed };
    enum Role { idRole = Qt::UserRole + 1, titleRole, completeRole, reminderRole };

    explicit TaskListModel(Shown shown, QObject* parent = nullptr);

    /// Brings the rows in line with `tasks`, at a cost that follows the change.
    void setTasks(const planner::RecordList<planner::PlannerTask>& tasks);

    int count() const;
    int rowCount(const QModelIndex& parent = {}) const override;
    /// Roles: `taskId` (QString), `title` (QString), `complete` (bool), `reminderAt` (QDateTime, invalid
    /// without one).
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The row of a task's id, -1 when it is not shown here.
    Q_INVOKABLE int rowOf(const QString& taskId) const;
    /// The id of the task in `row`; empty outside the list.
    Q_INVOKABLE QString idAt(int row) const;

signals:
    void countChanged();

private:
    const Shown shown_;
    planner::RecordList<planner::PlannerTask> tasks_;
    /// For each row, its task's position in `tasks_`.
    std::vector<std::size_t> rows_;
};

} // namespace orvane
