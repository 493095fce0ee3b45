#include "Model/TaskListModel.h"

#include <PlannerCore/Instant.h>

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace orvane {

using planner::PlannerTask;
using planner::Uuid;

namespace {

QString text(const Uuid& id) {
    return QString::fromStdString(id.text());
}

QDateTime dateTime(const std::optional<planner::Instant>& instant) {
    if (!instant) return {};
    return QDateTime::fromMSecsSinceEpoch(std::llround((instant->seconds + planner::unixEpochOffset) * 1000));
}

bool looksAlike(const PlannerTask& left, const PlannerTask& right) {
    return left.title == right.title && left.isComplete() == right.isComplete() &&
           left.reminderAt == right.reminderAt;
}

bool sameId(const PlannerTask* left, const PlannerTask* right) {
    return left == right || left->id == right->id;
}

/// Takes the element at `from` out and puts it in again so that it stands at `to`.
template <class Sequence>
void rotateOne(Sequence& sequence, std::size_t from, std::size_t to) {
    const auto at = [&](std::size_t index) { return sequence.begin() + std::ptrdiff_t(index); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
}

/// Which elements belong to one longest ascending subsequence of distinct numbers.
std::vector<bool> longestAscending(const std::vector<std::size_t>& numbers) {
    constexpr auto none = std::size_t(-1);
    std::vector<std::size_t> ends; // for each length, where its smallest-ending subsequence ends
    std::vector<std::size_t> previous(numbers.size(), none);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), numbers[i],
                             [&](std::size_t at, std::size_t number) { return numbers[at] < number; });
        if (end != ends.begin()) previous[i] = *(end - 1);
        if (end == ends.end())
            ends.push_back(i);
        else
            *end = i;
    }
    std::vector<bool> member(numbers.size(), false);
    for (auto i = ends.empty() ? none : ends.back(); i != none; i = previous[i]) member[i] = true;
    return member;
}

} // namespace

TaskListModel::TaskListModel(Shown shown, QObject* parent) : QAbstractListModel(parent), shown_(shown) {}

bool TaskListModel::shows(const PlannerTask& task) const {
    return task.isComplete() == (shown_ == Shown::completed);
}

void TaskListModel::setTasks(const Tasks& tasks) {
    // Only the chunks between those that both lists share at either end can hold a difference.
    const auto oldChunks = tasks_.chunkCount();
    const auto newChunks = tasks.chunkCount();
    const auto most = std::min(oldChunks, newChunks);
    const auto shared = [&](std::size_t left, std::size_t right) {
        return tasks_.chunk(left).data() == tasks.chunk(right).data();
    };
    std::size_t head = 0, tail = 0, rowsBefore = 0, rowsAfter = 0;
    for (; head < most && shared(head, head); ++head) rowsBefore += shownInChunk_[head];
    for (; tail < most - head && shared(oldChunks - 1 - tail, newChunks - 1 - tail); ++tail)
        rowsAfter += shownInChunk_[oldChunks - 1 - tail];

    Rows wanted;
    std::vector<std::size_t> counts;
    for (auto chunk = head; chunk < newChunks - tail; ++chunk) {
        const auto before = wanted.size();
        for (const auto& task : tasks.chunk(chunk))
            if (shows(task)) wanted.push_back(&task);
        counts.push_back(wanted.size() - before);
    }
    const auto from = shownInChunk_.begin() + std::ptrdiff_t(head);
    const auto at = shownInChunk_.erase(from, shownInChunk_.end() - std::ptrdiff_t(tail));
    shownInChunk_.insert(at, counts.begin(), counts.end());

    // Rows point into the old list's chunks until they are replaced.
    const auto old = std::exchange(tasks_, tasks);
    const auto countBefore = rows_.size();
    replaceRows(rowsBefore, rows_.size() - rowsAfter, wanted);
    if (rows_.size() != countBefore) emit countChanged();
}

void TaskListModel::replaceRows(std::size_t first, std::size_t last, const Rows& wanted) {
    std::size_t begin = 0, end = wanted.size();
    for (; first < last && begin < end && sameId(rows_[first], wanted[begin]); ++first, ++begin)
        update(first, wanted[begin]);
    for (; first < last && begin < end && sameId(rows_[last - 1], wanted[end - 1]); --last, --end)
        update(last - 1, wanted[end - 1]);
    const Rows rest(wanted.begin() + std::ptrdiff_t(begin), wanted.begin() + std::ptrdiff_t(end));
    if (!moveOne(first, last, rest)) rebuildRows(first, last, rest);
}

bool TaskListModel::moveOne(std::size_t first, std::size_t last, const Rows& wanted) {
    if (last - first != wanted.size() || wanted.size() < 2) return false;
    const auto begin = rows_.cbegin() + std::ptrdiff_t(first);
    const auto end = rows_.cbegin() + std::ptrdiff_t(last);
    if (sameId(*begin, wanted.back()) && std::equal(begin + 1, end, wanted.begin(), sameId))
        moveRow(first, last - 1);
    else if (sameId(*(end - 1), wanted.front()) && std::equal(begin, end - 1, wanted.begin() + 1, sameId))
        moveRow(last - 1, first);
    else
        return false;
    for (std::size_t i = 0; i < wanted.size(); ++i) update(first + i, wanted[i]);
    return true;
}

template <class Keep>
std::size_t TaskListModel::removeUnless(std::size_t first, std::size_t last, Keep keep) {
    auto removed = std::size_t(0);
    for (auto row = last; row > first;) {
        const auto end = row;
        while (row > first && !keep(row - 1)) --row;
        removeRange(row, end);
        removed += end - row;
        if (row > first) --row;
    }
    return last - removed;
}

void TaskListModel::rebuildRows(std::size_t first, std::size_t last, const Rows& wanted) {
    std::unordered_map<Uuid, std::size_t> places;
    for (const auto* task : wanted) places.emplace(task->id, places.size());
    last = removeUnless(first, last, [&](std::size_t row) { return places.contains(rows_[row]->id); });
    last = sortRows(first, last, places);

    // What is left stands in the wanted order; everything else goes in between, a run at a time.
    auto row = first;
    for (auto next = wanted.begin(); next != wanted.end();) {
        auto run = next;
        while (run != wanted.end() && (row == last || !sameId(rows_[row], *run))) ++run;
        const auto inserted = std::size_t(run - next);
        insertRange(row, next, run);
        row += inserted;
        last += inserted;
        if (run != wanted.end()) update(row++, *run++);
        next = run;
    }
}

std::size_t TaskListModel::sortRows(std::size_t first, std::size_t last,
                                    const std::unordered_map<Uuid, std::size_t>& places) {
    /// More rows than this are taken out and put in again: a view cannot animate them sensibly, and each
    /// single move costs a walk.
    constexpr std::size_t mostMoves = 32;
    std::vector<std::size_t> order;
    for (auto row = first; row < last; ++row) order.push_back(places.at(rows_[row]->id));
    auto settled = longestAscending(order);
    const auto strays = std::size_t(std::count(settled.begin(), settled.end(), false));
    if (strays > mostMoves)
        return removeUnless(first, last, [&](std::size_t row) { return settled[row - first]; });
    for (std::size_t moved = 0; moved < strays; ++moved) {
        const auto from = std::size_t(std::find(settled.begin(), settled.end(), false) - settled.begin());
        std::size_t to = 0;
        for (std::size_t at = 0; at < order.size(); ++at)
            if (settled[at] && order[at] < order[from]) to = at + 1;
        if (to > from) --to; // the stray itself leaves its place
        settled[from] = true;
        if (to == from) continue;
        moveRow(first + from, first + to);
        rotateOne(order, from, to);
        rotateOne(settled, from, to);
    }
    return last;
}

void TaskListModel::update(std::size_t row, const PlannerTask* task) {
    const auto* before = std::exchange(rows_[row], task);
    if (before == task || looksAlike(*before, *task)) return;
    const auto changed = index(int(row));
    emit dataChanged(changed, changed);
}

void TaskListModel::removeRange(std::size_t first, std::size_t last) {
    if (first == last) return;
    beginRemoveRows({}, int(first), int(last) - 1);
    rows_.erase(rows_.begin() + std::ptrdiff_t(first), rows_.begin() + std::ptrdiff_t(last));
    endRemoveRows();
}

void TaskListModel::insertRange(std::size_t row, Rows::const_iterator first, Rows::const_iterator last) {
    if (first == last) return;
    beginInsertRows({}, int(row), int(row) + int(last - first) - 1);
    rows_.insert(rows_.begin() + std::ptrdiff_t(row), first, last);
    endInsertRows();
}

void TaskListModel::moveRow(std::size_t from, std::size_t to) {
    // Qt counts the destination before the row is taken out.
    beginMoveRows({}, int(from), int(from), {}, int(to > from ? to + 1 : to));
    rotateOne(rows_, from, to);
    endMoveRows();
}

int TaskListModel::count() const {
    return int(rows_.size());
}

int TaskListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant TaskListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
    const auto& task = *rows_[std::size_t(index.row())];
    switch (role) {
    case idRole:
        return text(task.id);
    case titleRole:
        return QString::fromStdString(task.title);
    case completeRole:
        return task.isComplete();
    case reminderRole:
        return dateTime(task.reminderAt);
    default:
        return {};
    }
}

QHash<int, QByteArray> TaskListModel::roleNames() const {
    return {
        {idRole, "taskId"}, {titleRole, "title"}, {completeRole, "complete"}, {reminderRole, "reminderAt"}};
}

int TaskListModel::rowOf(const QString& taskId) const {
    const auto id = Uuid::parse(taskId.toStdString());
    if (!id) return -1;
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const auto* task) { return task->id == *id; });
    return found == rows_.end() ? -1 : int(found - rows_.begin());
}

QString TaskListModel::idAt(int row) const {
    return row >= 0 && row < count() ? text(rows_[std::size_t(row)]->id) : QString();
}

} // namespace orvane
