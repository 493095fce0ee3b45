#pragma once

#include "Model/TaskListModel.h"

#include <QAbstractListModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace orvane {

/// The tasks of a list whose titles contain what the user looks for, in the list's order. Every change
/// of the list or of the needle resets the rows: a search shows its result, it animates nothing. Main
/// thread.
class TaskSearchModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    /// The list to search, which must outlive this or be taken away before; nothing is searched without one.
    Q_PROPERTY(orvane::TaskListModel* tasks READ tasks WRITE setTasks NOTIFY tasksChanged)
    /// Part of a title, in any letter case; white space around it does not count. Empty finds every task.
    Q_PROPERTY(QString needle READ needle WRITE setNeedle NOTIFY needleChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    explicit TaskSearchModel(QObject* parent = nullptr);

    TaskListModel* tasks() const { return tasks_; }
    void setTasks(TaskListModel* tasks);
    const QString& needle() const { return needle_; }
    void setNeedle(const QString& needle);

    int count() const { return int(found_.size()); }
    int rowCount(const QModelIndex& parent = {}) const override;
    /// Roles: `taskId` and `title` (QString).
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The row of a task's id, -1 when it is not found.
    Q_INVOKABLE int rowOf(const QString& taskId) const;
    /// The id of the task in `row`; empty outside the list.
    Q_INVOKABLE QString idAt(int row) const;

signals:
    void tasksChanged();
    void needleChanged();
    void countChanged();

private:
    void search();

    TaskListModel* tasks_ = nullptr;
    QString needle_;
    /// The found tasks' rows in `tasks_`, ascending.
    std::vector<int> found_;
};

} // namespace orvane
