#pragma once

#include <PlannerCore/Instant.h>

#include <string>
#include <utility>

namespace planner {

/// The note of one day. A plain value; any thread.
struct DailyNote {
    /// The day's key, "2026-03-07" (see PlannerDates.h): one note a day.
    std::string id;
    /// UTF-8, at most 5,000,000 bytes, which `PlannerSnapshot::validated` checks.
    std::string text;
    /// When it was last edited.
    Instant updatedAt;

    DailyNote() = default;
    DailyNote(std::string id, std::string text, Instant updatedAt)
        : id(std::move(id)), text(std::move(text)), updatedAt(updatedAt) {}

    bool operator==(const DailyNote&) const = default;
};

} // namespace planner
