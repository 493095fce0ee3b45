#include <PlannerCore/PlannerRepository.h>

#include "MemoryDisk.h"
#include "PowerCut.h"
#include "ScratchFolder.h"
#include "StoredRows.h"
#include "TestScale.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <random>
#include <unordered_set>

using namespace planner;

namespace {

PlannerTask task(int order, std::size_t length) {
    return {Uuid::random(), std::string(length, char('a' + order % 26)), Instant{double(order)}, order};
}

PlannerSnapshot plannerOf(int tasks, std::size_t length) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index) planner.tasks.push_back(task(index, length));
    planner.notes.push_back({"2026-03-07", std::string(length * 20, 'n'), Instant{1}});
    planner.sessions.push_back({Uuid::random(), "Tea", FocusMode::countdown, 60, Instant{2}});
    return planner;
}

std::size_t fingerprint(const DiskContents& contents) {
    std::string all;
    for (const auto& [name, bytes] : contents)
        ((all += name) += '\n') += std::to_string(std::hash<std::string>{}(bytes));
    return std::hash<std::string>{}(all);
}

/// What was done to the disk during one operation of the store, and what the store held before and
/// after it.
struct Stage {
    std::string name;
    std::vector<DiskOperation> operations;
    PlannerSnapshot before;
    PlannerSnapshot after;
};

/// Runs the store on a disk of its own and keeps what each operation did to it.
class Recorder {
public:
    explicit Recorder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void open() {
        stage("open", {}, [&] { repository_.emplace(folder_); });
    }
    void save(const PlannerSnapshot& planner) {
        stage("save", planner, [&] { repository_->save(planner); });
    }
    void load() {
        stage("load", {}, [&] { EXPECT_EQ(repository_->load(), held_); });
    }
    /// Another program carries the log into the file, so that the next save begins a new log.
    void checkpoint() {
        stage("checkpoint", {},
              [&] { executeSql(folder_ / "Planner.sqlite", "PRAGMA wal_checkpoint(TRUNCATE)"); });
    }
    void close() {
        stage("close", {}, [&] { repository_.reset(); });
    }
    const std::vector<Stage>& stages() const { return stages_; }

private:
    void stage(const char* name, const std::optional<PlannerSnapshot>& after,
               const std::function<void()>& run) {
        const auto start = std::ptrdiff_t(disk_.record().size());
        run();
        const auto& record = disk_.record();
        stages_.push_back({name, {record.begin() + start, record.end()}, held_, after.value_or(held_)});
        held_ = stages_.back().after;
    }

    std::filesystem::path folder_;
    MemoryDisk disk_;
    std::optional<PlannerRepository> repository_;
    PlannerSnapshot held_;
    std::vector<Stage> stages_;
};

std::vector<Stage> aLife(const std::filesystem::path& folder) {
    Recorder store(folder);
    auto planner = plannerOf(6, 20);
    store.open();
    store.save(planner);
    for (int edit = 0; edit < 4; ++edit) {
        auto renamed = planner.tasks[1];
        renamed.title += std::to_string(edit);
        planner.tasks.replace(1, renamed);
        store.save(planner);
    }
    planner.tasks.erase(0);
    planner.tasks.push_back(task(100, 900));
    store.save(planner);
    store.checkpoint();
    planner.notes.replace(0, {"2026-03-07", std::string(30000, 'm'), Instant{3}});
    store.save(planner);
    planner.tasks.erase(2);
    store.save(planner);
    store.load();
    store.close();
    store.open();
    store.load();
    planner.tasks.push_back(task(101, 50));
    store.save(planner);
    // A restore: everything goes and as much comes.
    planner = plannerOf(60, 300);
    store.save(planner);
    planner.tasks.erase(7);
    store.save(planner);
    store.close();
    store.open();
    store.save(PlannerSnapshot());
    store.close();
    return store.stages();
}

/// What a store holds that is opened over `contents` after the power came back; the recovery is kept in
/// `record` where one is given.
PlannerSnapshot recovered(const std::filesystem::path& folder, const DiskContents& contents,
                          std::vector<DiskOperation>* record = nullptr) {
    MemoryDisk disk(contents);
    auto planner = PlannerRepository(folder).load();
    if (record) *record = disk.record();
    return planner;
}

/// Opens the store after every distinct power cut that it is shown.
class Survey {
public:
    explicit Survey(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// `isOver`: the operation has returned, so that only what it promised may be found.
    void look(const DiskContents& contents, const Stage& stage, bool isOver) {
        if (!seen_.insert(fingerprint(contents)).second) return;
        const auto isAllowed = [&](const PlannerSnapshot& found) {
            return found == stage.after || (!isOver && found == stage.before);
        };
        try {
            // A cut during the recovery is followed by another recovery now and then.
            std::vector<DiskOperation> recovery;
            const bool again = seen_.size() % 50 == 0;
            if (!isAllowed(recovered(folder_, contents, again ? &recovery : nullptr)))
                fail(stage, "holds another planner");
            PowerCut power(contents);
            for (const auto& operation : recovery) {
                power.follow(operation);
                power.forEachOutcome(random_, 2, [&](const DiskContents& second) {
                    if (!seen_.insert(fingerprint(second)).second) return;
                    if (!isAllowed(recovered(folder_, second)))
                        fail(stage, "holds another planner after two cuts");
                });
            }
        } catch (const std::exception& error) {
            fail(stage, error.what());
        }
    }
    std::mt19937_64& random() { return random_; }
    std::size_t distinct() const { return seen_.size(); }

private:
    void fail(const Stage& stage, const std::string& text) {
        ADD_FAILURE() << "a power cut during " << stage.name << ": " << text;
    }

    std::filesystem::path folder_;
    std::unordered_set<std::size_t> seen_;
    std::mt19937_64 random_{20260307};
};

} // namespace

TEST(PlannerRepositoryCrash, APowerCutAtAnyMomentLeavesThePlannerAsItWasBeforeOrAfter) {
    const ScratchFolder folder;
    const auto stages = aLife(folder.path());
    Survey survey(folder.path());
    PowerCut power({});
    const auto step = stride(5);
    std::size_t shown = 0;
    for (const auto& stage : stages) {
        for (std::size_t index = 0; index < stage.operations.size(); ++index) {
            power.follow(stage.operations[index]);
            const bool isOver = index + 1 == stage.operations.size();
            power.forEachOutcome(survey.random(), scaled(36), [&](const DiskContents& contents) {
                const bool isTaken = shown++ % step == 0;
                if (isTaken && !::testing::Test::HasFailure()) survey.look(contents, stage, isOver);
            });
        }
    }
    RecordProperty("distinctStates", int(survey.distinct()));
    std::cout << survey.distinct() << " distinct states of the disk\n";
    EXPECT_GE(survey.distinct(), std::size_t(scaled(10000)));
}
