#pragma once

#include <PlannerCore/PlannerTask.h>
#include <PlannerCore/RecordList.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace orvane {

/// Edits a task list at a cost that does not grow with it: it remembers about where each task stands
/// and which `order` is the largest. All edits of the list go through here; whoever replaces the list
/// as a whole calls `reset`. Main thread.
class TaskTable {
public:
    /// `tasks` must outlive this.
    explicit TaskTable(planner::RecordList<planner::PlannerTask>& tasks) : tasks_(tasks) {}
    TaskTable(const TaskTable&) = delete;
    TaskTable& operator=(const TaskTable&) = delete;

    /// Learns the list anew, at a cost linear in its length.
    void reset();

    /// The position of the task with `id`; nothing when there is none.
    std::optional<std::size_t> find(const planner::Uuid& id);

    /// One more than the largest `order`, 0 for an empty list. Where that is no 64-bit number, every
    /// task is renumbered to its position first.
    std::int64_t nextOrder();

    /// Puts `task`, whose id the list does not hold yet, at the end.
    void append(planner::PlannerTask task);
    /// Gives the task at `position` new fields; id and order stay.
    void replace(std::size_t position, planner::PlannerTask task);
    /// Removes the task at `position` and returns it.
    planner::PlannerTask take(std::size_t position);
    /// Takes the task at `from` out, puts it before the one with the id `before`, at the end when there
    /// is none, and sets every task's `order` to its position. Chunks whose orders stay are shared on.
    void move(std::size_t from, const std::optional<planner::Uuid>& before);

private:
    void renumber();

    planner::RecordList<planner::PlannerTask>& tasks_;
    /// Where each task stood when it was last looked up. Edits elsewhere shift a task by a place at a
    /// time, so it is found near there.
    std::unordered_map<planner::Uuid, std::size_t> lastSeen_;
    /// Nothing when it must be looked up.
    std::optional<std::int64_t> largestOrder_;
};

} // namespace orvane
