#include <PlannerCore/PlannerRepository.h>

#include <PlannerCore/Detail/Sqlite.h>

#include "ChildProcess.h"
#include "FaultVfs.h"
#include "ScratchFolder.h"
#include "StoredRows.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace planner;

namespace {

PlannerSnapshot plannerOf(int tasks) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index)
        planner.tasks.push_back({Uuid::random(), "Task " + std::to_string(index), Instant{1}, index});
    return planner;
}

/// What opening and loading the planner in `folder` ends with: "" when it ends well.
template <class Error>
std::string refusal(const std::filesystem::path& folder) {
    try {
        PlannerRepository(folder).load();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

/// A store file that holds `planner`, closed, with `sql` run on it.
void makeStore(const ScratchFolder& folder, const PlannerSnapshot& planner, const std::string& sql = "") {
    PlannerRepository(folder.path()).save(planner);
    executeSql(folder / "Planner.sqlite", sql);
}

/// Whether opening and loading fails with `message` and leaves every file as it was.
template <class Error>
testing::AssertionResult isRefusedUntouched(const ScratchFolder& folder, const std::string& message) {
    const auto before = filesIn(folder.path());
    const auto found = refusal<Error>(folder.path());
    if (found != message) return testing::AssertionFailure() << "\"" << found << "\"";
    if (filesIn(folder.path()) != before) return testing::AssertionFailure() << "files have changed";
    return testing::AssertionSuccess();
}

constexpr const char* incompatible = "This planner was created by an incompatible app version.";
constexpr const char* unreadable = "A planner record is unreadable.";
constexpr const char* foreign = "The file belongs to another program.";

} // namespace

TEST(PlannerRepositoryInput, AFileThatIsNoDatabaseIsRefusedAndKeepsItsBytes) {
    for (const std::string bytes : {"Dear diary", "SQLite format 3", "\0"}) {
        const ScratchFolder folder;
        writeFile(folder / "Planner.sqlite", bytes + std::string(5000, '.'));
        EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, "file is not a database"));
        writeFile(folder / "Planner.sqlite", bytes + ".");
        EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, "file is not a database"));
    }
}

TEST(PlannerRepositoryInput, AnEmptyFileBecomesAPlanner) {
    const ScratchFolder folder;
    writeFile(folder / "Planner.sqlite", "");
    EXPECT_EQ(PlannerRepository(folder.path()).load(), PlannerSnapshot());
}

TEST(PlannerRepositoryInput, ADatabaseOfAnotherProgramIsRefusedAndKeepsItsBytes) {
    for (const char* sql : {"CREATE TABLE recipe(name)", "PRAGMA user_version = 7",
                            "CREATE TABLE PlannerRecord(key TEXT PRIMARY KEY NOT NULL, kind TEXT NOT NULL,"
                            " payload BLOB NOT NULL)"}) {
        const ScratchFolder folder;
        executeSql(folder / "Planner.sqlite", sql);
        EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, foreign)) << sql;
    }
}

TEST(PlannerRepositoryInput, APlannerWithMoreOrLessInItIsRefusedAndKeepsItsBytes) {
    for (const char* sql :
         {"CREATE TABLE recipe(name)", "CREATE INDEX kinds ON PlannerRecord(kind)",
          "CREATE VIEW tasks AS SELECT * FROM PlannerRecord",
          "CREATE TRIGGER t AFTER DELETE ON PlannerRecord BEGIN SELECT 1; END", "DROP TABLE PlannerRecord",
          "DROP TABLE PlannerMetadata", "ALTER TABLE PlannerRecord ADD COLUMN colour",
          "PRAGMA application_id = 0", "PRAGMA user_version = 0"}) {
        const ScratchFolder folder;
        makeStore(folder, plannerOf(3), sql);
        EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, foreign)) << sql;
    }
}

TEST(PlannerRepositoryInput, StatisticsThatSqliteKeepsInAPlannerAreNoReasonToRefuseIt) {
    const ScratchFolder folder;
    const auto planner = plannerOf(3);
    makeStore(folder, planner, "ANALYZE; VACUUM");
    EXPECT_EQ(PlannerRepository(folder.path()).load(), planner);
}

TEST(PlannerRepositoryInput, APlannerOfANewerVersionIsRefusedAndKeepsItsBytes) {
    for (const char* sql : {"PRAGMA user_version = 2", "PRAGMA user_version = -1",
                            "UPDATE PlannerMetadata SET value = 'Orvane-v2'", "DELETE FROM PlannerMetadata",
                            "PRAGMA user_version = 2; CREATE TABLE calendar(name)"}) {
        const ScratchFolder folder;
        makeStore(folder, plannerOf(3), sql);
        EXPECT_TRUE(isRefusedUntouched<PlannerError>(folder, incompatible)) << sql;
    }
}

TEST(PlannerRepositoryInput, ANewerVersionThatStandsOnlyInTheLogIsRefusedAndKeepsItsBytes) {
    const ScratchFolder folder, copy;
    makeStore(folder, plannerOf(3));
    {
        detail::Database database(folder / "Planner.sqlite", detail::Access::readWrite);
        database.execute("PRAGMA user_version = 2");
        for (const char* name : {"Planner.sqlite", "Planner.sqlite-wal"})
            std::filesystem::copy_file(folder / name, copy / name);
    }
    EXPECT_TRUE(isRefusedUntouched<PlannerError>(copy, incompatible));
}

TEST(PlannerRepositoryInput, ALogThatAKilledRunLeftIsTakenIn) {
    const ScratchFolder folder, copy;
    const auto planner = plannerOf(40);
    PlannerRepository repository(folder.path());
    repository.save(planner);
    for (const char* name : {"Planner.sqlite", "Planner.sqlite-wal"})
        std::filesystem::copy_file(folder / name, copy / name);
    EXPECT_EQ(PlannerRepository(copy.path()).load(), planner);
    EXPECT_FALSE(std::filesystem::exists(copy / "Planner.sqlite-wal"));
}

TEST(PlannerRepositoryInput, ATruncatedPlannerIsRefusedAndKeepsItsBytes) {
    const ScratchFolder folder;
    makeStore(folder, plannerOf(200));
    const auto whole = fileBytes(folder / "Planner.sqlite");
    for (const std::size_t size :
         {whole.size() - 1, whole.size() - 4096, whole.size() / 2, std::size_t(4096)}) {
        writeFile(folder / "Planner.sqlite", whole.substr(0, size));
        EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, "database disk image is malformed")) << size;
    }
    for (const std::size_t size : {50u, 99u}) {
        writeFile(folder / "Planner.sqlite", whole.substr(0, size));
        EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, "file is not a database")) << size;
    }
}

TEST(PlannerRepositoryInput, ADamagedPageIsToldAndKeepsItsBytes) {
    const ScratchFolder folder;
    makeStore(folder, plannerOf(200));
    auto bytes = fileBytes(folder / "Planner.sqlite");
    for (std::size_t page = 4; page * 4096 < bytes.size(); ++page)
        bytes.replace(page * 4096, 100, 100, '\xFF');
    writeFile(folder / "Planner.sqlite", bytes);
    EXPECT_TRUE(isRefusedUntouched<StoreError>(folder, "database disk image is malformed"));
}

TEST(PlannerRepositoryInput, ARowThatIsNoRecordIsToldAndKeepsItsBytes) {
    const std::vector<std::pair<const char*, const char*>> rows{
        {"INSERT INTO PlannerRecord VALUES('a', x'74', x'7B7D')", unreadable},
        {"INSERT INTO PlannerRecord VALUES('a', 'task', '{}')", unreadable},
        {"INSERT INTO PlannerRecord VALUES('a', 'task', 5)", unreadable},
        {"INSERT INTO PlannerRecord VALUES('a', 'reminder', x'7B7D')", incompatible},
        {"INSERT INTO PlannerRecord VALUES('a', 'Task', x'7B7D')", incompatible},
        {"INSERT INTO PlannerRecord VALUES('a', '', x'7B7D')", incompatible}};
    for (const auto& [sql, message] : rows) {
        const ScratchFolder folder;
        makeStore(folder, plannerOf(3), sql);
        EXPECT_TRUE(isRefusedUntouched<PlannerError>(folder, message)) << sql;
    }
}

TEST(PlannerRepositoryInput, APayloadThatIsNotItsRecordIsToldAndKeepsItsBytes) {
    for (const char* payload : {"7B7D", "", "5B5D", "7B", "FF", "6E756C6C"}) {
        const ScratchFolder folder;
        makeStore(folder, plannerOf(3),
                  "INSERT INTO PlannerRecord VALUES('a', 'task', x'" + std::string(payload) + "')");
        const auto before = filesIn(folder.path());
        EXPECT_THROW(PlannerRepository(folder.path()).load(), JsonError) << payload;
        EXPECT_TRUE(filesIn(folder.path()) == before);
    }
}

TEST(PlannerRepositoryInput, TwoRunningSessionsAreToldAndKeepTheirBytes) {
    const ScratchFolder folder;
    PlannerSnapshot planner;
    for (int index = 0; index < 2; ++index)
        planner.sessions.push_back({Uuid::random(), "Tea", FocusMode::stopwatch, 60, Instant{1}});
    makeStore(folder, planner);
    EXPECT_TRUE(isRefusedUntouched<PlannerError>(
        folder, "The backup contains invalid or excessively large records."));
}

TEST(PlannerRepositoryInput, RowsInAnotherFormThanOursAreReadAndRewrittenByTheNextSave) {
    const ScratchFolder folder;
    PlannerSnapshot planner;
    planner.notes.push_back({"2026-03-07", "Rain", Instant{2}});
    makeStore(folder, planner);
    const auto expected = storedRows(folder.path());
    executeSql(
        folder / "Planner.sqlite",
        R"(UPDATE PlannerRecord SET payload = CAST('{"text": "Rain", "id": "2026-03-07", "updatedAt": 2.0}' AS BLOB))");
    PlannerRepository repository(folder.path());
    EXPECT_EQ(repository.load(), planner);
    repository.save(planner);
    EXPECT_EQ(storedRows(folder.path()), expected);
}

TEST(PlannerRepositoryInput, AFileWhereTheFolderShouldBeIsTold) {
    const ScratchFolder folder;
    writeFile(folder / "Orvane", "a file");
    EXPECT_EQ(refusal<StoreError>(folder / "Orvane"), "Not a directory");
    EXPECT_EQ(refusal<StoreError>(folder / "Orvane" / "deeper"), "Not a directory");
    EXPECT_EQ(fileBytes(folder / "Orvane"), "a file");
}

TEST(PlannerRepositoryInput, AFolderWhereTheFileShouldBeIsTold) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "Planner.sqlite");
    EXPECT_EQ(refusal<StoreError>(folder.path()), "Is a directory");
}

TEST(PlannerRepositoryInput, APlannerThatAnotherProgramIsWritingIsToldAndSavedOnceItIsDone) {
    const ScratchFolder folder;
    // Through it the wait for the lock takes no time.
    const FaultVfs disk;
    PlannerRepository repository(folder.path());
    const auto planner = plannerOf(2);
    detail::Database other(folder / "Planner.sqlite", detail::Access::readWrite);
    other.execute("BEGIN IMMEDIATE");
    try {
        repository.save(planner);
        ADD_FAILURE() << "saved into a locked store";
    } catch (const StoreError& error) {
        EXPECT_STREQ(error.what(), "database is locked");
    }
    other.execute("ROLLBACK");
    repository.save(planner);
    EXPECT_EQ(repository.load(), planner);
}

TEST(PlannerRepositoryInput, WhatAnotherProgramWroteSinceTheLastSaveIsNoticed) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    auto planner = plannerOf(2);
    repository.save(planner);
    executeSql(folder / "Planner.sqlite", "DELETE FROM PlannerRecord");
    planner.tasks.push_back({Uuid::random(), "Third", Instant{3}, 3});
    repository.save(planner);
    EXPECT_EQ(repository.load(), planner);
}

TEST(PlannerRepositoryInput, AFolderThatMayNotBeWrittenIsTold) {
    const ScratchFolder folder;
    makeStore(folder, plannerOf(2));
    const auto before = filesIn(folder.path());
    chmod((folder / "Planner.sqlite").c_str(), 0444);
    chmod(folder.path().c_str(), 0555);
    const auto told = inChildProcess([&]() -> std::string {
        becomeNobody();
        if (refusal<StoreError>(folder.path()).empty()) return "opened";
        return refusal<StoreError>(folder / "deeper");
    });
    EXPECT_EQ(told, "Permission denied");
    chmod(folder.path().c_str(), 0700);
    EXPECT_TRUE(filesIn(folder.path()) == before);
}

TEST(PlannerRepositoryInput, AFolderThatMayNotBeReadIsTold) {
    const ScratchFolder folder;
    makeStore(folder, plannerOf(2));
    chmod(folder.path().c_str(), 0);
    const auto told = inChildProcess([&] {
        becomeNobody();
        return refusal<StoreError>(folder.path());
    });
    EXPECT_EQ(told, "Permission denied");
    chmod(folder.path().c_str(), 0700);
}
