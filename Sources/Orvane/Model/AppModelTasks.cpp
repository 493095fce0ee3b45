#include "Model/AppModel.h"

#include "Platform/Clock.h"
#include "Platform/Platform.h"

#include <PlannerCore/Titles.h>

#include <cstdlib>
#include <utility>

namespace orvane {

using planner::PlannerTask;
using planner::Uuid;

namespace {

std::string trimmedTitle(const QString& title) {
    return std::string(planner::titles::trimmed(title.toStdString()));
}

bool isTooLong(const std::string& title) {
    return planner::titles::characterCount(title) > planner::maximumTitleCharacters;
}

} // namespace

std::optional<Uuid> AppModel::addTask(const QString& title) {
    auto trimmed = trimmedTitle(title);
    if (isTooLong(trimmed)) {
        setError(tr("Task titles can contain up to 1,000 characters."));
        return std::nullopt;
    }
    if (!editable() || trimmed.empty()) return std::nullopt;
    // A longer list could be saved but not opened again.
    if (snapshot_.tasks.size() >= planner::maximumRecords) {
        setError(tr("A planner can hold up to 100,000 tasks."));
        return std::nullopt;
    }
    const auto order = tasks_.nextOrder();
    const auto id = Uuid::random();
    tasks_.append({id, std::move(trimmed), platform_.clock.now(), order});
    tasksEdited();
    persist();
    return id;
}

void AppModel::rename(const PlannerTask& task, const QString& title) {
    auto trimmed = trimmedTitle(title);
    if (!editable() || trimmed.empty() || isTooLong(trimmed)) return;
    const auto position = tasks_.find(task.id);
    if (!position) return;
    auto renamed = snapshot_.tasks[*position];
    renamed.title = std::move(trimmed);
    tasks_.replace(*position, std::move(renamed));
    tasksEdited();
    persist();
}

void AppModel::toggle(const PlannerTask& task) {
    if (!editable()) return;
    const auto position = tasks_.find(task.id);
    if (!position) return;
    auto toggled = snapshot_.tasks[*position];
    const bool completes = !toggled.isComplete();
    toggled.completedAt = completes ? std::optional(platform_.clock.now()) : std::nullopt;
    const auto id = task.id;
    tasks_.replace(*position, std::move(toggled));
    tasksEdited();
    if (completes && focusIsOn(id)) focus_->finish();
    persist();
}

void AppModel::deleteTask(const PlannerTask& task) {
    if (!editable()) return;
    const auto id = task.id;
    if (!tasks_.find(id)) return;
    if (focusIsOn(id)) focus_->finish();
    const auto position = tasks_.find(id);
    if (!position) return;
    keepDeleted(tasks_.take(*position));
    tasksEdited();
    persist();
    setNotice(tr("Task removed."));
}

void AppModel::undoDelete() {
    if (!editable() || !deleted_) return;
    if (snapshot_.tasks.size() >= planner::maximumRecords) return;
    auto task = *deleted_;
    keepDeleted(std::nullopt);
    if (!tasks_.find(task.id)) tasks_.append(std::move(task));
    tasksEdited();
    persist();
    setNotice(std::nullopt);
}

void AppModel::keepDeleted(std::optional<PlannerTask> task) {
    const bool offered = canUndoDelete();
    deleted_ = std::move(task);
    if (canUndoDelete() != offered) emit canUndoDeleteChanged();
}

void AppModel::moveTask(const Uuid& moved, const Uuid& before) {
    moveTask(moved, std::optional(before));
}

void AppModel::moveTask(const Uuid& moved, const std::optional<Uuid>& before) {
    if (!editable() || before == moved) return;
    const auto from = tasks_.find(moved);
    if (!from) return;
    tasks_.move(*from, before);
    tasksEdited();
    persist();
}

void AppModel::moveTask(const PlannerTask& task, int offset) {
    if (!editable()) return;
    const auto& tasks = snapshot_.tasks;
    const auto position = tasks_.find(task.id);
    if (!position || tasks[*position].isComplete()) return;
    auto neighbour = *position;
    for (auto open = std::abs(std::int64_t(offset)); open > 0;) {
        if (offset < 0 ? neighbour == 0 : neighbour + 1 == tasks.size()) return;
        offset < 0 ? --neighbour : ++neighbour;
        if (!tasks[neighbour].isComplete()) --open;
    }
    const auto moved = tasks[*position].id;
    const auto passed = tasks[neighbour].id;
    if (offset < 0)
        moveTask(moved, passed);
    else
        moveTask(passed, moved);
}

std::vector<PlannerTask> AppModel::incompleteTasks() const {
    std::vector<PlannerTask> open;
    for (const auto& task : snapshot_.tasks)
        if (!task.isComplete()) open.push_back(task);
    return open;
}

QString AppModel::openTaskTitle(const QString& taskId) {
    const auto task = taskNamed(taskId);
    return task && !task->isComplete() ? QString::fromStdString(task->title) : QString();
}

bool AppModel::isUpcoming(const QDateTime& moment) const {
    const auto now = platform_.clock.now().seconds + planner::unixEpochOffset;
    return moment.isValid() && static_cast<double>(moment.toMSecsSinceEpoch()) > now * 1000;
}

std::optional<PlannerTask> AppModel::taskNamed(const QString& taskId) {
    const auto id = Uuid::parse(taskId.toStdString());
    const auto position = id ? tasks_.find(*id) : std::nullopt;
    return position ? std::optional(snapshot_.tasks[*position]) : std::nullopt;
}

QString AppModel::addTaskTitled(const QString& title) {
    const auto id = addTask(title);
    return id ? QString::fromStdString(id->text()) : QString();
}

void AppModel::renameTask(const QString& taskId, const QString& title) {
    if (const auto task = taskNamed(taskId)) rename(*task, title);
}

void AppModel::toggleTask(const QString& taskId) {
    if (const auto task = taskNamed(taskId)) toggle(*task);
}

void AppModel::deleteTask(const QString& taskId) {
    if (const auto task = taskNamed(taskId)) deleteTask(*task);
}

void AppModel::moveTaskBefore(const QString& taskId, const QString& targetId) {
    if (const auto moved = Uuid::parse(taskId.toStdString()))
        moveTask(*moved, Uuid::parse(targetId.toStdString()));
}

void AppModel::moveTaskBy(const QString& taskId, int offset) {
    if (const auto task = taskNamed(taskId)) moveTask(*task, offset);
}

} // namespace orvane
