#include "Model/TaskTable.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace orvane {

using planner::PlannerTask;
using planner::Uuid;

void TaskTable::reset() {
    lastSeen_.clear();
    lastSeen_.reserve(tasks_.size());
    largestOrder_.reset();
    std::size_t position = 0;
    for (const auto& task : tasks_) {
        lastSeen_.emplace(task.id, position++);
        largestOrder_ = std::max(largestOrder_.value_or(task.order), task.order);
    }
}

std::optional<std::size_t> TaskTable::find(const Uuid& id) {
    const auto seen = lastSeen_.find(id);
    if (seen == lastSeen_.end()) return std::nullopt;
    const auto size = tasks_.size();
    const auto near = std::min(seen->second, size);
    for (std::size_t distance = 0; distance <= size; ++distance) {
        if (near + distance < size && tasks_[near + distance].id == id) return seen->second = near + distance;
        if (distance <= near && near - distance < size && tasks_[near - distance].id == id)
            return seen->second = near - distance;
    }
    return std::nullopt;
}

std::int64_t TaskTable::nextOrder() {
    if (tasks_.empty()) return 0;
    if (!largestOrder_) {
        largestOrder_ = tasks_.front().order;
        for (const auto& task : tasks_) largestOrder_ = std::max(*largestOrder_, task.order);
    }
    if (*largestOrder_ == std::numeric_limits<std::int64_t>::max()) renumber();
    return *largestOrder_ + 1;
}

void TaskTable::append(PlannerTask task) {
    if (tasks_.empty())
        largestOrder_ = task.order;
    else if (largestOrder_)
        largestOrder_ = std::max(*largestOrder_, task.order);
    lastSeen_[task.id] = tasks_.size();
    tasks_.push_back(std::move(task));
}

void TaskTable::replace(std::size_t position, PlannerTask task) {
    tasks_.replace(position, std::move(task));
}

PlannerTask TaskTable::take(std::size_t position) {
    auto task = tasks_[position];
    tasks_.erase(position);
    lastSeen_.erase(task.id);
    if (largestOrder_ && task.order >= *largestOrder_) largestOrder_.reset();
    return task;
}

void TaskTable::move(std::size_t from, const std::optional<Uuid>& before) {
    auto task = tasks_[from];
    tasks_.erase(from);
    const auto target = before && *before != task.id ? find(*before) : std::nullopt;
    const auto to = target.value_or(tasks_.size());
    lastSeen_[task.id] = to;
    tasks_.insert(to, std::move(task));
    renumber();
}

void TaskTable::renumber() {
    tasks_.changeIf(
        [](const PlannerTask& task, std::size_t index) { return task.order != std::int64_t(index); },
        [](PlannerTask& task, std::size_t index) { task.order = std::int64_t(index); });
    largestOrder_ = std::int64_t(tasks_.size()) - 1;
}

} // namespace orvane
