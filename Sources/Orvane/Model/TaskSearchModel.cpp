#include "Model/TaskSearchModel.h"

#include <algorithm>

namespace orvane {

TaskSearchModel::TaskSearchModel(QObject* parent) : QAbstractListModel(parent) {}

void TaskSearchModel::setTasks(TaskListModel* tasks) {
    if (tasks == tasks_) return;
    if (tasks_) tasks_->disconnect(this);
    tasks_ = tasks;
    if (tasks_) {
        connect(tasks_, &TaskListModel::rowsInserted, this, &TaskSearchModel::search);
        connect(tasks_, &TaskListModel::rowsRemoved, this, &TaskSearchModel::search);
        connect(tasks_, &TaskListModel::rowsMoved, this, &TaskSearchModel::search);
        connect(tasks_, &TaskListModel::dataChanged, this, &TaskSearchModel::search);
    }
    emit tasksChanged();
    search();
}

void TaskSearchModel::setNeedle(const QString& needle) {
    if (needle == needle_) return;
    needle_ = needle;
    emit needleChanged();
    search();
}

void TaskSearchModel::search() {
    const auto wanted = needle_.trimmed();
    const auto before = found_.size();
    beginResetModel();
    found_.clear();
    for (int row = 0; tasks_ && row < tasks_->count(); ++row)
        if (wanted.isEmpty() || tasks_->data(tasks_->index(row), TaskListModel::titleRole)
                                    .toString()
                                    .contains(wanted, Qt::CaseInsensitive))
            found_.push_back(row);
    endResetModel();
    if (found_.size() != before) emit countChanged();
}

int TaskSearchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant TaskSearchModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
    return tasks_->data(tasks_->index(found_[std::size_t(index.row())]), role);
}

QHash<int, QByteArray> TaskSearchModel::roleNames() const {
    return {{TaskListModel::idRole, "taskId"}, {TaskListModel::titleRole, "title"}};
}

int TaskSearchModel::rowOf(const QString& taskId) const {
    const int row = tasks_ ? tasks_->rowOf(taskId) : -1;
    const auto found = std::lower_bound(found_.begin(), found_.end(), row);
    return found != found_.end() && *found == row ? int(found - found_.begin()) : -1;
}

QString TaskSearchModel::idAt(int row) const {
    return row >= 0 && row < count() ? tasks_->idAt(found_[std::size_t(row)]) : QString();
}

} // namespace orvane
