#pragma once

#include <PlannerCore/PlannerSnapshot.h>

#include <optional>
#include <vector>

namespace planner::detail {

/// What turns one list of records into another. Points into both, which must outlive it unchanged.
template <class Record>
struct ListDifference {
    /// Records of the old list whose identifier the new one lacks.
    std::vector<const Record*> removed;
    /// Records of the new list that differ from the old one's of the same identifier.
    std::vector<const Record*> changed;
    /// Records of the new list whose identifier was not found in the old one: one that it lacks, unless
    /// the new list holds an identifier twice.
    std::vector<const Record*> added;

    bool empty() const { return removed.empty() && changed.empty() && added.empty(); }
};

struct Difference {
    ListDifference<PlannerTask> tasks;
    ListDifference<DailyNote> notes;
    ListDifference<FocusSession> sessions;
    /// Whether there was something and nothing of it stays.
    bool removesEverything = false;

    bool empty() const { return tasks.empty() && notes.empty() && sessions.empty(); }
};

/// What turns `stored`, in which no identifier stands twice, into `wanted`. Looks only at the chunks
/// that the two do not share. Nothing when an identifier was seen to stand twice in
/// `wanted`; one that stands twice without having been seen to comes as added.
std::optional<Difference> difference(const PlannerSnapshot& stored, const PlannerSnapshot& wanted);

} // namespace planner::detail
