#include <PlannerCore/Detail/StoreDifference.h>

#include <PlannerCore/Detail/StoreRecords.h>

#include <algorithm>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
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
using Records = std::span<const Record* const>;

/// Takes away what both begin with, record by record, noting in `found` which of those have changed.
/// Most edits leave the rest empty or short, and only that has to be looked up.
template <class Record>
void skipCommonStart(Records<Record>& before, Records<Record>& after, ListDifference<Record>& found) {
    std::size_t count = 0;
    for (; count < std::min(before.size(), after.size()); ++count) {
        if (identifier(*before[count]) != identifier(*after[count])) break;
        if (*before[count] != *after[count]) found.changed.push_back(after[count]);
    }
    before = before.subspan(count);
    after = after.subspan(count);
}

template <class Record>
void skipCommonEnd(Records<Record>& before, Records<Record>& after, ListDifference<Record>& found) {
    while (!before.empty() && !after.empty() && identifier(*before.back()) == identifier(*after.back())) {
        if (*before.back() != *after.back()) found.changed.push_back(after.back());
        before = before.first(before.size() - 1);
        after = after.first(after.size() - 1);
    }
}

template <class Record>
bool compareByIdentifier(Records<Record> before, Records<Record> after, ListDifference<Record>& found) {
    using Identifier = std::decay_t<decltype(identifier(std::declval<const Record&>()))>;
    std::unordered_map<Identifier, const Record*> old;
    old.reserve(before.size());
    for (const auto* record : before) old.emplace(identifier(*record), record);
    std::unordered_set<Identifier> seen;
    seen.reserve(after.size());
    for (const auto* record : after) {
        if (!seen.insert(identifier(*record)).second) return false;
        const auto match = old.find(identifier(*record));
        if (match == old.end())
            found.added.push_back(record);
        else if (*match->second != *record)
            found.changed.push_back(record);
    }
    for (const auto* record : before)
        if (!seen.contains(identifier(*record))) found.removed.push_back(record);
    return true;
}

template <class Record>
std::optional<ListDifference<Record>> listDifference(const RecordList<Record>& stored,
                                                     const RecordList<Record>& wanted) {
    std::vector<const Record*> unsharedBefore, unsharedAfter;
    stored.forEachUnshared(wanted, [&](const Record& record) { unsharedBefore.push_back(&record); });
    wanted.forEachUnshared(stored, [&](const Record& record) { unsharedAfter.push_back(&record); });
    Records<Record> before = unsharedBefore, after = unsharedAfter;
    ListDifference<Record> found;
    skipCommonStart(before, after, found);
    skipCommonEnd(before, after, found);
    if (!compareByIdentifier(before, after, found)) return std::nullopt;
    return found;
}

} // namespace

std::optional<Difference> difference(const PlannerSnapshot& stored, const PlannerSnapshot& wanted) {
    auto tasks = listDifference(stored.tasks, wanted.tasks);
    auto notes = listDifference(stored.notes, wanted.notes);
    auto sessions = listDifference(stored.sessions, wanted.sessions);
    if (!tasks || !notes || !sessions) return std::nullopt;
    const auto removed = tasks->removed.size() + notes->removed.size() + sessions->removed.size();
    return Difference{std::move(*tasks), std::move(*notes), std::move(*sessions),
                      removed > 0 && removed == recordCount(stored)};
}

} // namespace planner::detail
