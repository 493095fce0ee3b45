#pragma once

#include <PlannerCore/PlannerSnapshot.h>

#include <string>
#include <string_view>

/// What the three kinds of records are called in the store.
namespace planner::detail {

template <class Record>
struct StoredAs;

template <>
struct StoredAs<PlannerTask> {
    static constexpr std::string_view kind = "task";
    static void appendKey(const PlannerTask& task, std::string& out) { (out += "task-") += task.id.text(); }
};

template <>
struct StoredAs<DailyNote> {
    static constexpr std::string_view kind = "note";
    static void appendKey(const DailyNote& note, std::string& out) { (out += "note-") += note.id; }
};

template <>
struct StoredAs<FocusSession> {
    static constexpr std::string_view kind = "session";
    static void appendKey(const FocusSession& session, std::string& out) {
        (out += "session-") += session.id.text();
    }
};

/// Calls `visit` with each of the planner's lists, in the order in which they are written.
template <class Visitor>
void forEachList(const PlannerSnapshot& snapshot, Visitor visit) {
    visit(snapshot.tasks);
    visit(snapshot.notes);
    visit(snapshot.sessions);
}

inline std::size_t recordCount(const PlannerSnapshot& snapshot) {
    return snapshot.tasks.size() + snapshot.notes.size() + snapshot.sessions.size();
}

} // namespace planner::detail
