#include <PlannerCore/Detail/StoreDifference.h>

#include <string_view>
#include <unordered_map>
#include <utility>

namespace planner::detail {

namespace {

const Uuid& identifier(const PlannerTask& task) {
    return task.id;
}
std::string_view identifier(const DailyNote& note) {
    return note.id;
}
const Uuid& identifier(const FocusSession& session) {
    return session.id;
}

template <class Record>
std::optional<ListDifference<Record>> listDifference(const RecordList<Record>& stored,
                                                     const RecordList<Record>& wanted) {
    std::vector<const Record*> before, after;
    stored.forEachUnshared(wanted, [&](const Record& record) { before.push_back(&record); });
    wanted.forEachUnshared(stored, [&](const Record& record) { after.push_back(&record); });

    using Identifier = std::decay_t<decltype(identifier(std::declval<const Record&>()))>;
    std::unordered_map<Identifier, const Record*> old;
    old.reserve(before.size());
    for (const auto* record : before) old.emplace(identifier(*record), record);

    ListDifference<Record> found;
    std::unordered_map<Identifier, const Record*> seen;
    seen.reserve(after.size());
    for (const auto* record : after) {
        if (!seen.emplace(identifier(*record), record).second) return std::nullopt;
        const auto match = old.find(identifier(*record));
        if (match == old.end())
            found.added.push_back(record);
        else if (*match->second != *record)
            found.changed.push_back(record);
    }
    for (const auto* record : before)
        if (!seen.contains(identifier(*record))) found.removed.push_back(record);
    return found;
}

} // namespace

std::optional<Difference> difference(const PlannerSnapshot& stored, const PlannerSnapshot& wanted) {
    auto tasks = listDifference(stored.tasks, wanted.tasks);
    auto notes = listDifference(stored.notes, wanted.notes);
    auto sessions = listDifference(stored.sessions, wanted.sessions);
    if (!tasks || !notes || !sessions) return std::nullopt;
    return Difference{std::move(*tasks), std::move(*notes), std::move(*sessions)};
}

} // namespace planner::detail
