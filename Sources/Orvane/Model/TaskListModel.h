#pragma once

#include <PlannerCore/PlannerTask.h>
#include <PlannerCore/RecordList.h>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace orvane {

/// The open or the completed tasks as rows for a view, in the planner's order. An edit changes only
/// the rows it touches: rows are inserted, removed, moved and updated, never reset. Main thread.
class TaskListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
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
    using Tasks = planner::RecordList<planner::PlannerTask>;
    /// Shown tasks, in order. They stand in the chunks of a `Tasks` that is kept for as long.
    using Rows = std::vector<const planner::PlannerTask*>;

    bool shows(const planner::PlannerTask& task) const;
    void update(std::size_t row, const planner::PlannerTask* task);
    void replaceRows(std::size_t first, std::size_t last, const Rows& wanted);
    bool moveOne(std::size_t first, std::size_t last, const Rows& wanted);
    void rebuildRows(std::size_t first, std::size_t last, const Rows& wanted);
    /// Brings rows of wanted tasks into the order of `places`; returns where they end then.
    std::size_t sortRows(std::size_t first, std::size_t last,
                         const std::unordered_map<planner::Uuid, std::size_t>& places);
    /// Removes the rows for which `keep` does not hold; returns where the others end.
    template <class Keep>
    std::size_t removeUnless(std::size_t first, std::size_t last, Keep keep);
    void removeRange(std::size_t first, std::size_t last);
    void insertRange(std::size_t row, Rows::const_iterator first, Rows::const_iterator last);
    void moveRow(std::size_t from, std::size_t to);

    const Shown shown_;
    Tasks tasks_;
    Rows rows_;
    /// For each chunk of `tasks_`, how many of its records are shown.
    std::vector<std::size_t> shownInChunk_;
};

} // namespace orvane
