#pragma once

#include <PlannerCore/Instant.h>
#include <PlannerCore/Uuid.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace planner {

/// One entry of the task list. A plain value; any thread.
struct PlannerTask {
    Uuid id;
    /// UTF-8. Not empty once trimmed and at most 1,000 user-perceived characters, which
    /// `PlannerSnapshot::validated` checks; the record itself holds any text.
    std::string title;
    /// Second sort key of the list.
    Instant createdAt;
    /// Set when the task is done; absent while it is open.
    std::optional<Instant> completedAt;
    /// When a reminder is due; absent when none is set.
    std::optional<Instant> reminderAt;
    /// Position in the list, ascending: the first sort key.
    std::int64_t order = 0;

    PlannerTask() = default;
    /// An open task without a reminder.
    PlannerTask(Uuid id, std::string title, Instant createdAt, std::int64_t order)
        : id(id), title(std::move(title)), createdAt(createdAt), order(order) {}

    bool isComplete() const { return completedAt.has_value(); }

    bool operator==(const PlannerTask&) const = default;
};

} // namespace planner
