#include <PlannerCore/PlannerRepository.h>

#include "FaultVfs.h"
#include "ScratchFolder.h"
#include "StoredRows.h"

#include <gtest/gtest.h>

using namespace planner;

namespace {

PlannerSnapshot plannerOf(int tasks) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index)
        planner.tasks.push_back({Uuid::random(), "Task " + std::to_string(index), Instant{1}, index});
    return planner;
}

std::string failureOfSave(PlannerRepository& repository, const PlannerSnapshot& planner) {
    try {
        repository.save(planner);
    } catch (const StoreError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(PlannerRepositoryFaults, AFullDiskKeepsTheOldPlannerAndTakesTheNewOneOnceThereIsRoom) {
    const ScratchFolder folder;
    FaultVfs disk;
    PlannerRepository repository(folder.path());
    auto planner = plannerOf(3);
    repository.save(planner);
    const auto before = storedRows(folder.path());
    planner.tasks.push_back({Uuid::random(), "One more", Instant{2}, 9});

    disk.failWrites(SQLITE_FULL);
    EXPECT_EQ(failureOfSave(repository, planner), "database or disk is full");
    EXPECT_EQ(failureOfSave(repository, planner), "database or disk is full");
    disk.heal();
    EXPECT_EQ(storedRows(folder.path()), before);
    repository.save(planner);
    EXPECT_EQ(repository.load(), planner);
}

TEST(PlannerRepositoryFaults, AFailureNamesTheSystemsReason) {
    const ScratchFolder folder;
    FaultVfs disk;
    PlannerRepository repository(folder.path());
    disk.failWrites(SQLITE_IOERR_WRITE);
    EXPECT_EQ(failureOfSave(repository, plannerOf(1)), "disk I/O error: Input/output error");
}

TEST(PlannerRepositoryFaults, ASaveInWhichNothingChangedAccessesNoFile) {
    const ScratchFolder folder;
    FaultVfs disk;
    PlannerRepository repository(folder.path());
    const auto planner = plannerOf(600);
    repository.save(planner);
    auto sameRecords = planner;
    sameRecords.tasks.replace(300, planner.tasks[300]);
    for (const auto& again : {planner, sameRecords}) {
        disk.resetCounts();
        repository.save(again);
        // What is left are locks on memory that SQLite shares with other programs.
        EXPECT_EQ(disk.calls() - disk.calls(FaultVfs::Call::lock), 0u);
    }
}

TEST(PlannerRepositoryFaults, AnEditWritesAsMuchToALargePlannerAsToASmallOne) {
    const auto written = [](int tasks) {
        const ScratchFolder folder;
        FaultVfs disk;
        PlannerRepository repository(folder.path());
        auto planner = plannerOf(tasks);
        repository.save(planner);
        // The first edit after a large save also begins a new log.
        for (const char* title : {"Renamed", "Renamed again"}) {
            disk.resetCounts();
            auto renamed = planner.tasks[0];
            renamed.title = title;
            planner.tasks.replace(0, renamed);
            repository.save(planner);
        }
        EXPECT_EQ(disk.calls(FaultVfs::Call::sync), 1u);
        return disk.calls(FaultVfs::Call::write);
    };
    EXPECT_LE(written(20000), written(20) + 2);
}
