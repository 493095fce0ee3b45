#include "Generators.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace planner::generators {

namespace {

using Change = void (*)(PlannerSnapshot&);

/// Changes the first record of a list, if there is one.
template <class Record, class Edit>
void editFirst(RecordList<Record>& records, Edit edit) {
    if (records.empty()) return;
    auto record = records.front();
    edit(record);
    records.replace(0, record);
}

template <class Record>
void repeatFirst(RecordList<Record>& records) {
    if (!records.empty()) records.push_back(records.front());
}

template <std::int64_t version>
void setVersion(PlannerSnapshot& snapshot) {
    snapshot.schemaVersion = version;
}

template <std::size_t count>
void setTitleOf(PlannerSnapshot& snapshot) {
    std::string title;
    for (std::size_t index = 0; index < count; ++index) title += "e\u0301";
    editFirst(snapshot.tasks, [&](PlannerTask& task) { task.title = title; });
}

void setTitle(PlannerSnapshot& snapshot, const char* title) {
    editFirst(snapshot.tasks, [&](PlannerTask& task) { task.title = title; });
}

void setTarget(PlannerSnapshot& snapshot, double target) {
    editFirst(snapshot.sessions, [&](FocusSession& session) { session.target = target; });
}

void addSegment(PlannerSnapshot& snapshot, double duration) {
    editFirst(snapshot.sessions, [&](FocusSession& session) { session.segments.push_back({{0}, duration}); });
}

void setOnlySegments(PlannerSnapshot& snapshot, std::vector<FocusSegment> segments) {
    editFirst(snapshot.sessions, [&](FocusSession& session) { session.segments = segments; });
}

/// Leaves the last session unfinished.
template <FocusStatus status>
void openLast(PlannerSnapshot& snapshot) {
    if (snapshot.sessions.empty()) return;
    auto session = snapshot.sessions.back();
    session.status = status;
    snapshot.sessions.replace(snapshot.sessions.size() - 1, session);
}

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto notANumber = std::numeric_limits<double>::quiet_NaN();

constexpr Change changes[] = {
    setVersion<0>,
    setVersion<2>,
    [](PlannerSnapshot& s) { repeatFirst(s.tasks); },
    [](PlannerSnapshot& s) { repeatFirst(s.notes); },
    [](PlannerSnapshot& s) { repeatFirst(s.sessions); },
    // A session may have the identifier of a task.
    [](PlannerSnapshot& s) {
        if (!s.tasks.empty()) editFirst(s.sessions, [&](FocusSession& f) { f.id = s.tasks.front().id; });
    },
    setTitleOf<1000>,
    setTitleOf<1001>,
    [](PlannerSnapshot& s) { setTitle(s, ""); },
    [](PlannerSnapshot& s) { setTitle(s, " \t\r\n\u00A0\u2028\u3000"); },
    [](PlannerSnapshot& s) { setTitle(s, "\u200B"); },
    openLast<FocusStatus::running>,
    openLast<FocusStatus::paused>,
    [](PlannerSnapshot& s) { setTarget(s, 0); },
    [](PlannerSnapshot& s) { setTarget(s, std::numeric_limits<double>::denorm_min()); },
    [](PlannerSnapshot& s) { setTarget(s, 86'400); },
    [](PlannerSnapshot& s) { setTarget(s, 86'400.5); },
    [](PlannerSnapshot& s) { setTarget(s, infinity); },
    [](PlannerSnapshot& s) { setTarget(s, notANumber); },
    [](PlannerSnapshot& s) { addSegment(s, 0); },
    [](PlannerSnapshot& s) { addSegment(s, -0.0); },
    [](PlannerSnapshot& s) { addSegment(s, -0.001); },
    [](PlannerSnapshot& s) { addSegment(s, infinity); },
    [](PlannerSnapshot& s) { addSegment(s, notANumber); },
    [](PlannerSnapshot& s) {
        setOnlySegments(s, {{{0}, 315'575'999}, {{0}, 1}});
    },
    [](PlannerSnapshot& s) {
        setOnlySegments(s, {{{0}, 315'576'000}, {{0}, 0.5}});
    },
    [](PlannerSnapshot& s) {
        setOnlySegments(s, {{{0}, 315'576'000}, {{0}, -1}, {{0}, 1}});
    },
    [](PlannerSnapshot& s) {
        setOnlySegments(s, {{{0}, 1e308}, {{0}, 1e308}});
    },
};

} // namespace

rc::Gen<PlannerSnapshot> nearlyValidSnapshot() {
    const auto someChanges = rc::gen::mapcat(rc::gen::inRange<std::size_t>(0, 4), [](std::size_t count) {
        return rc::gen::container<std::vector<std::size_t>>(
            count, rc::gen::inRange<std::size_t>(0, std::size(changes)));
    });
    return rc::gen::map(rc::gen::pair(validSnapshot(), someChanges),
                        [](const std::pair<PlannerSnapshot, std::vector<std::size_t>>& parts) {
                            auto [snapshot, chosen] = parts;
                            for (const auto index : chosen) changes[index](snapshot);
                            return snapshot;
                        });
}

} // namespace planner::generators
