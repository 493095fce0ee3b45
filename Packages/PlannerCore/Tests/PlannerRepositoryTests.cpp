#include <PlannerCore/PlannerRepository.h>

#include "ScratchFolder.h"
#include "StoredRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>

using namespace planner;

namespace {

PlannerTask task(const char* title, std::int64_t order, double createdAt = 0) {
    return {Uuid::random(), title, Instant{createdAt}, order};
}

PlannerSnapshot smallPlanner() {
    PlannerSnapshot planner;
    planner.tasks.push_back(task("Water the plants", 1, 10));
    planner.tasks.push_back(task("Call Ada", 2, 20));
    planner.notes.push_back({"2026-03-07", "Rain.\n", Instant{30}});
    planner.sessions.push_back(
        {planner.tasks[0].id, "Water the plants", FocusMode::stopwatch, 1500, Instant{40}});
    return planner;
}

/// The message of the failure that `action` ends with; empty when it ends well.
template <class Error, class Action>
std::string failure(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

unsigned permissions(const std::filesystem::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777u : 0;
}

} // namespace

TEST(PlannerRepository, AnEmptyStoreLoadsAsTheDefaultSnapshot) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    EXPECT_EQ(repository.load(), PlannerSnapshot());
}

TEST(PlannerRepository, WhatWasSavedIsLoadedByTheNextRepository) {
    const ScratchFolder folder;
    const auto planner = smallPlanner();
    PlannerRepository(folder.path()).save(planner);
    EXPECT_EQ(PlannerRepository(folder.path()).load(), planner);
}

TEST(PlannerRepository, WhatWasSavedIsLoadedByTheSameRepository) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    auto planner = smallPlanner();
    repository.save(planner);
    EXPECT_EQ(repository.load(), planner);
    planner.tasks.erase(0);
    repository.save(planner);
    EXPECT_EQ(repository.load(), planner);
}

TEST(PlannerRepository, EachRecordIsOneRowOfItsKeyKindAndCompactJson) {
    const ScratchFolder folder;
    PlannerSnapshot planner;
    planner.tasks.push_back({*Uuid::parse("0f8fad5b-d9cb-469f-a165-70867728950e"), "Tea", Instant{1.5}, 3});
    planner.notes.push_back({"2026-03-07", "Rain", Instant{2}});
    FocusSession session(planner.tasks[0].id, "Tea", FocusMode::countdown, 60, Instant{4});
    session.id = *Uuid::parse("7c9e6679-7425-40de-944b-e07fc1f90ae7");
    session.segments.push_back({Instant{4}, 2.5});
    planner.sessions.push_back(session);
    PlannerRepository(folder.path()).save(planner);

    const StoredRows expected{
        {"task-0F8FAD5B-D9CB-469F-A165-70867728950E",
         {"task",
          R"({"createdAt":1.5,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","order":3,"title":"Tea"})"}},
        {"note-2026-03-07", {"note", R"({"id":"2026-03-07","text":"Rain","updatedAt":2})"}},
        {"session-7C9E6679-7425-40DE-944B-E07FC1F90AE7",
         {"session", R"({"createdAt":4,"id":"7C9E6679-7425-40DE-944B-E07FC1F90AE7","mode":"countdown",)"
                     R"("segments":[{"duration":2.5,"start":4}],"status":"running","target":60,)"
                     R"("taskID":"0F8FAD5B-D9CB-469F-A165-70867728950E","title":"Tea"})"}}};
    EXPECT_EQ(storedRows(folder.path()), expected);
}

TEST(PlannerRepository, SavingTheSameSnapshotTwiceLeavesTheStoreUnchangedTheSecondTime) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    const auto planner = smallPlanner();
    repository.save(planner);
    const auto before = filesIn(folder.path());
    repository.save(planner);
    EXPECT_TRUE(filesIn(folder.path()) == before);
}

TEST(PlannerRepository, RemovingOneTaskDeletesExactlyItsRow) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    auto planner = smallPlanner();
    repository.save(planner);
    auto expected = storedRows(folder.path());
    ASSERT_EQ(expected.erase("task-" + planner.tasks[0].id.text()), 1u);
    planner.tasks.erase(0);
    repository.save(planner);
    EXPECT_EQ(storedRows(folder.path()), expected);
}

TEST(PlannerRepository, RenamingATaskRewritesOnlyThatRowsPayload) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    auto planner = smallPlanner();
    repository.save(planner);
    auto expected = storedRows(folder.path());
    auto renamed = planner.tasks[1];
    renamed.title = "Call Grace";
    planner.tasks.replace(1, renamed);
    auto& payload = expected.at("task-" + renamed.id.text()).second;
    payload.replace(payload.find("Call Ada"), 8, "Call Grace");
    repository.save(planner);
    EXPECT_EQ(storedRows(folder.path()), expected);
}

TEST(PlannerRepository, ARowWithKindReminderMakesTheNextLoadFail) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    repository.save(smallPlanner());
    executeSql(folder / "Planner.sqlite",
               "INSERT INTO PlannerRecord VALUES('reminder-1', 'reminder', x'7B7D')");
    EXPECT_EQ(failure<PlannerError>([&] { repository.load(); }),
              "This planner was created by an incompatible app version.");
}

TEST(PlannerRepository, TasksLoadByOrderAndThenByCreation) {
    const ScratchFolder folder;
    PlannerSnapshot planner;
    planner.tasks = RecordList<PlannerTask>(
        {task("last", 2, 0), task("created at ten", 1, 36000), task("created at nine", 1, 32400)});
    PlannerRepository(folder.path()).save(planner);
    const auto loaded = PlannerRepository(folder.path()).load();
    ASSERT_EQ(loaded.tasks.size(), 3u);
    EXPECT_EQ(loaded.tasks[0].title, "created at nine");
    EXPECT_EQ(loaded.tasks[1].title, "created at ten");
    EXPECT_EQ(loaded.tasks[2].title, "last");
}

TEST(PlannerRepository, NotesLoadByDayAndSessionsByCreation) {
    const ScratchFolder folder;
    PlannerSnapshot planner;
    planner.notes.push_back({"2026-03-07", "second", Instant{1}});
    planner.notes.push_back({"2025-12-31", "first", Instant{2}});
    for (const double createdAt : {30.0, 10.0, 20.0}) {
        planner.sessions.push_back({Uuid::random(), "Tea", FocusMode::stopwatch, 60, Instant{createdAt}});
        auto finished = planner.sessions.back();
        finished.status = FocusStatus::finished;
        planner.sessions.replace(planner.sessions.size() - 1, finished);
    }
    PlannerRepository(folder.path()).save(planner);
    const auto loaded = PlannerRepository(folder.path()).load();
    ASSERT_EQ(loaded.notes.size(), 2u);
    EXPECT_EQ(loaded.notes[0].text, "first");
    ASSERT_EQ(loaded.sessions.size(), 3u);
    for (std::size_t index = 0; index < 3; ++index)
        EXPECT_EQ(loaded.sessions[index].createdAt.seconds, 10.0 * double(index + 1));
}

TEST(PlannerRepository, AStoreWithTwoRunningSessionsFailsToLoad) {
    const ScratchFolder folder;
    auto planner = smallPlanner();
    planner.sessions.push_back({Uuid::random(), "Tea", FocusMode::stopwatch, 60, Instant{1}});
    PlannerRepository repository(folder.path());
    repository.save(planner);
    EXPECT_EQ(failure<PlannerError>([&] { repository.load(); }),
              "The backup contains invalid or excessively large records.");
}

TEST(PlannerRepository, PreserveBackupOfAnInvalidSnapshotWritesNoFile) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    PlannerSnapshot planner;
    planner.tasks.push_back(task("  ", 1));
    const auto before = filesIn(folder.path());
    EXPECT_THROW(repository.preserveBackup(planner), PlannerError);
    EXPECT_TRUE(filesIn(folder.path()) == before);
}

TEST(PlannerRepository, PreserveBackupWritesTheBackupBesideTheStoreForItsOwnerAlone) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    const auto planner = smallPlanner();
    const auto first = repository.preserveBackup(planner);
    const auto second = repository.preserveBackup(PlannerSnapshot());
    EXPECT_EQ(first.parent_path(), folder.path());
    const auto name = first.filename().string();
    ASSERT_EQ(name.size(), std::string("Before-restore-.json").size() + 36);
    EXPECT_TRUE(name.starts_with("Before-restore-") && name.ends_with(".json"));
    EXPECT_EQ(Uuid::parse(name.substr(15, 36)).value().text(), name.substr(15, 36));
    EXPECT_EQ(fileBytes(first), planner.backupData());
    EXPECT_EQ(fileBytes(second), PlannerSnapshot().backupData());
    EXPECT_EQ(permissions(first), 0600u);
    for (const auto& [file, bytes] : filesIn(folder.path())) EXPECT_FALSE(file.ends_with(".part")) << file;
}

TEST(PlannerRepository, FoldersAndFilesThatItMakesAreTheirOwnersAlone) {
    const ScratchFolder scratch;
    const auto folder = scratch / "share" / "Orvane";
    PlannerRepository repository(folder);
    repository.save(smallPlanner());
    EXPECT_EQ(permissions(folder), 0700u);
    EXPECT_EQ(permissions(folder.parent_path()), 0700u);
    const auto files = filesIn(folder);
    EXPECT_TRUE(files.contains("Planner.sqlite-wal"));
    for (const auto& [name, bytes] : files) EXPECT_EQ(permissions(folder / name), 0600u) << name;
}

TEST(PlannerRepository, OfRecordsWithOneKeyTheLastCounts) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    PlannerSnapshot planner;
    planner.notes.push_back({"2026-03-07", "first", Instant{1}});
    planner.notes.push_back({"2026-03-07", "last", Instant{2}});
    repository.save(planner);
    const StoredRows expected{
        {"note-2026-03-07", {"note", R"({"id":"2026-03-07","text":"last","updatedAt":2})"}}};
    EXPECT_EQ(storedRows(folder.path()), expected);
}

TEST(PlannerRepository, TheKindOfAnExistingKeyIsNeverRewritten) {
    const ScratchFolder folder;
    auto planner = smallPlanner();
    PlannerRepository repository(folder.path());
    repository.save(planner);
    executeSql(folder / "Planner.sqlite", "UPDATE PlannerRecord SET kind = 'other' WHERE kind = 'note'");
    planner.notes.replace(0, {"2026-03-07", "Sun.", Instant{50}});
    repository.save(planner);
    const auto row = storedRows(folder.path()).at("note-2026-03-07");
    EXPECT_EQ(row.first, "other");
    EXPECT_EQ(row.second, R"({"id":"2026-03-07","text":"Sun.","updatedAt":50})");
}

TEST(PlannerRepository, RowsThatAnotherProgramWroteAreBroughtInLineByTheNextSave) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    const auto planner = smallPlanner();
    repository.save(planner);
    const auto expected = storedRows(folder.path());
    executeSql(folder / "Planner.sqlite", "DELETE FROM PlannerRecord WHERE kind = 'task'");
    executeSql(folder / "Planner.sqlite", "UPDATE PlannerRecord SET payload = 'text' WHERE kind = 'note'");
    executeSql(folder / "Planner.sqlite", "INSERT INTO PlannerRecord VALUES('note-x', 'note', x'00')");
    repository.save(planner);
    EXPECT_EQ(storedRows(folder.path()), expected);
}

TEST(PlannerRepository, ANumberThatJsonCannotHoldEndsTheSaveAndLeavesTheStore) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    auto planner = smallPlanner();
    repository.save(planner);
    const auto expected = storedRows(folder.path());
    planner.tasks.push_back(task("Never", 9));
    planner.tasks.push_back(task("Never", 10, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_THROW(repository.save(planner), JsonError);
    EXPECT_EQ(storedRows(folder.path()), expected);
    planner.tasks.erase(3);
    repository.save(planner);
    EXPECT_EQ(repository.load(), planner);
}
