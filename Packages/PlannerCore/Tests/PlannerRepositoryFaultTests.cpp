#include <PlannerCore/PlannerRepository.h>

#include "FaultMemory.h"
#include "FaultVfs.h"
#include "MemoryDisk.h"
#include "ScratchFolder.h"
#include "StoredRows.h"
#include "TestScale.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

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

/// A short life of a store, each operation of which either does all that it says or throws a StoreError
/// and changes nothing.
class ShortLife {
public:
    explicit ShortLife(std::filesystem::path folder) : folder_(std::move(folder)) {
        edited_.tasks.erase(0);
        edited_.notes.push_back({"2026-03-07", std::string(20000, 'n'), Instant{2}});
    }

    /// Opens, saves and loads twice over. Adds a failure to the test when an operation failed in
    /// another way or a load gave another planner than the one saved last.
    void run() {
        for (int time = 0; time < 2; ++time) {
            attempt([&] { repository_.emplace(folder_); });
            if (!repository_) continue;
            save(planner_);
            save(edited_);
            attempt([&] { check(repository_->load()); });
            repository_.reset();
        }
    }

    /// What the store holds now that nothing fails any more, read by a fresh repository.
    void checkAfterwards() {
        repository_.reset();
        try {
            PlannerRepository repository(folder_);
            check(repository.load());
            repository.save(planner_);
            EXPECT_EQ(repository.load(), planner_);
        } catch (const std::exception& error) {
            ADD_FAILURE() << "not healed: " << error.what();
        }
    }

private:
    void save(const PlannerSnapshot& planner) {
        // A save that failed is undone; only a power cut may still bring it about.
        if (attempt([&] { repository_->save(planner); }))
            possible_ = {planner};
        else
            possible_.push_back(planner);
    }
    bool attempt(const std::function<void()>& action) {
        try {
            action();
            return true;
        } catch (const StoreError&) {
        } catch (const std::exception& error) {
            ADD_FAILURE() << "not a failure of the disk: " << error.what();
        }
        return false;
    }
    void check(const PlannerSnapshot& found) {
        EXPECT_NE(std::ranges::find(possible_, found), possible_.end());
    }

    std::filesystem::path folder_;
    std::optional<PlannerRepository> repository_;
    const PlannerSnapshot planner_ = plannerOf(5);
    PlannerSnapshot edited_ = planner_;
    std::vector<PlannerSnapshot> possible_{PlannerSnapshot()};
};

} // namespace

TEST(PlannerRepositoryFaults, WhicheverCallFailsTheStoreIsAsBeforeOrAfterAndWorksAgain) {
    const ScratchFolder folder;
    std::size_t calls = 0;
    {
        MemoryDisk memory;
        FaultVfs disk;
        ShortLife(folder.path()).run();
        calls = disk.calls();
    }
    ASSERT_GT(calls, 200u);
    std::size_t failed = 0;
    const auto step = stride(7);
    for (const int code : {SQLITE_FULL, SQLITE_IOERR, SQLITE_CANTOPEN, SQLITE_BUSY, SQLITE_NOMEM})
        for (const bool once : {true, false})
            for (std::size_t call = 0; call < calls; call += step) {
                SCOPED_TRACE(testing::Message()
                             << sqlite3_errstr(code) << (once ? ", once" : "") << " at " << call);
                MemoryDisk memory;
                FaultVfs disk;
                disk.failAt(call, code, once);
                ShortLife life(folder.path());
                life.run();
                failed += disk.hasFailed();
                disk.heal();
                life.checkAfterwards();
                if (HasFailure()) return;
            }
    // Only locks can be busy; every call can fail in each of the other ways.
    const auto tries = (calls + step - 1) / step;
    EXPECT_GT(failed, 8 * tries);
    EXPECT_LT(failed, 10 * tries);
}

TEST(PlannerRepositoryFaults, WhicheverAllocationFailsTheStoreIsAsBeforeOrAfterAndWorksAgain) {
    const ScratchFolder folder;
    FaultMemory memory;
    const auto allocationsOfALife = [&] {
        MemoryDisk disk;
        const auto before = memory.allocations();
        ShortLife(folder.path()).run();
        return memory.allocations() - before;
    };
    const auto allocations = allocationsOfALife();
    ASSERT_GT(allocations, 1000u);
    const auto step = allocations / std::size_t(scaled(500));
    for (const bool once : {true, false})
        for (std::size_t number = 0; number < allocations; number += step) {
            SCOPED_TRACE(testing::Message() << (once ? "once" : "") << " at " << number);
            MemoryDisk disk;
            memory.failAt(number, once);
            ShortLife life(folder.path());
            life.run();
            memory.heal();
            life.checkAfterwards();
            if (HasFailure()) return;
        }
}

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
