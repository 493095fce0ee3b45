#include <PlannerCore/PlannerRepository.h>

#include <PlannerCore/Detail/StoreFile.h>
#include <PlannerCore/Detail/StoreRows.h>

#include "Generators.h"
#include "MemoryDisk.h"
#include "ScratchFolder.h"
#include "StoredRows.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace planner;

namespace {

/// Saves by comparing every row, which is slow and right from whatever the table holds.
void saveWhole(const std::filesystem::path& folder, const PlannerSnapshot& planner) {
    auto database = detail::openStore(folder / "Planner.sqlite");
    detail::StoreRows rows(database);
    detail::Transaction transaction(database, detail::Transaction::Kind::write);
    rows.writeWhole(planner);
    transaction.commit();
}

/// Enough records for several chunks, a few of whose identifiers come up again and again.
PlannerSnapshot aPlanner() {
    PlannerSnapshot planner;
    for (int index = 0; index < 700; ++index) {
        planner.tasks.push_back({Uuid::random(), "Task", Instant{1}, index});
        planner.notes.push_back({"note " + std::to_string(index), "text", Instant{2}});
    }
    return planner;
}

/// Some change of one list: a record changed, removed, put in, put in twice, moved, or nothing at all.
template <class Record, class Make, class Change>
void edit(RecordList<Record>& records, Make make, Change change) {
    const auto place = *rc::gen::inRange<std::size_t>(0, records.size() + 1);
    const bool isInside = place < records.size();
    switch (*rc::gen::inRange(0, 7)) {
    case 0:
        if (isInside) records.replace(place, change(records[place]));
        break;
    case 1:
        if (isInside) records.erase(place);
        break;
    case 2:
        records.insert(place, make());
        break;
    case 3:
        if (isInside)
            records.insert(*rc::gen::inRange<std::size_t>(0, records.size()), change(records[place]));
        break;
    case 4:
        if (isInside) {
            const auto moved = records[place];
            records.erase(place);
            records.insert(*rc::gen::inRange<std::size_t>(0, records.size() + 1), moved);
        }
        break;
    case 5:
        if (isInside) records.replace(place, Record(records[place]));
        break;
    case 6:
        if (*rc::gen::inRange(0, 8) == 0) records = {};
        break;
    }
}

void editSomething(PlannerSnapshot& planner) {
    if (*rc::gen::arbitrary<bool>()) {
        edit(
            planner.tasks, [] { return *rc::gen::arbitrary<PlannerTask>(); },
            [](PlannerTask task) {
                task.title = *planner::generators::text();
                return task;
            });
    } else {
        edit(
            planner.notes,
            [] {
                const auto number = *rc::gen::inRange(0, 800);
                return DailyNote("note " + std::to_string(number), "new", Instant{3});
            },
            [](DailyNote note) {
                note.updatedAt = Instant{*planner::generators::finiteNumber()};
                return note;
            });
    }
}

/// The first key whose row is not the same in both; "" when all are.
std::string firstDifference(const StoredRows& left, const StoredRows& right) {
    for (const auto& rows : {left, right})
        for (const auto& [key, row] : rows) {
            const auto one = left.find(key), other = right.find(key);
            if (one == left.end() || other == right.end()) return key + " stands in one only";
            if (one->second != other->second) return one->second.second + " and " + other->second.second;
        }
    return {};
}

} // namespace

RC_GTEST_PROP(PlannerRepositoryDifference, WritesTheSameRowsAsTheComparisonOfEveryRow, ()) {
    const ScratchFolder byDifference, whole;
    const MemoryDisk disk;
    PlannerRepository repository(byDifference.path());
    auto planner = aPlanner();
    const auto saves = *rc::gen::inRange(1, 8);
    for (int save = 0; save < saves; ++save) {
        if (save > 0 && *rc::gen::inRange(0, 5) == 0)
            for (const auto* folder : {&byDifference, &whole})
                executeSql(*folder / "Planner.sqlite",
                           "UPDATE PlannerRecord SET payload = x'00' WHERE key LIKE '%7'");
        repository.save(planner);
        saveWhole(whole.path(), planner);
        RC_ASSERT(firstDifference(storedRows(byDifference.path()), storedRows(whole.path())) ==
                  std::string());
        const auto edits = *rc::gen::inRange(0, 6);
        for (int change = 0; change < edits; ++change) editSomething(planner);
    }
}

RC_GTEST_PROP(PlannerRepositoryDifference, WhatWasSavedIsLoadedAgain, ()) {
    const ScratchFolder folder;
    const MemoryDisk disk;
    auto planner = *planner::generators::validSnapshot();
    PlannerRepository(folder.path()).save(planner);
    PlannerRepository repository(folder.path());
    const auto loaded = repository.load();
    RC_ASSERT(storedRows(folder.path()).size() ==
              planner.tasks.size() + planner.notes.size() + planner.sessions.size());
    repository.save(planner);
    RC_ASSERT(repository.load() == loaded);
}
