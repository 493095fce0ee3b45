#include <PlannerCore/PlannerSnapshot.h>

#include "Generators.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <string>
#include <string_view>

using namespace planner;
using namespace std::string_view_literals;

namespace {

const auto someID = *Uuid::parse("0F8FAD5B-D9CB-469F-A165-70867728950E");
const auto otherID = *Uuid::parse("7C9E6679-7425-40DE-944B-E07FC1F90AE7");

constexpr auto emptyPlanner = R"({
  "notes": [],
  "schemaVersion": 1,
  "sessions": [],
  "tasks": []
})"sv;

std::string padded(std::string_view json, std::size_t size) {
    return std::string(json) + std::string(size - json.size(), ' ');
}

std::string sentenceOf(std::string_view backup) {
    try {
        PlannerSnapshot::decodeBackup(backup);
        return {};
    } catch (const PlannerError& error) {
        return error.what();
    }
}

PlannerSnapshot smallPlanner() {
    PlannerSnapshot snapshot;
    snapshot.tasks.push_back({someID, "Water", {86400.5}, 1});
    snapshot.notes.push_back({"2026-03-07", "Hello\n", {2}});
    FocusSession session(someID, "Water", FocusMode::countdown, 1500, {3});
    session.id = otherID;
    session.status = FocusStatus::finished;
    session.segments = {{{3}, 60}};
    snapshot.sessions.push_back(session);
    return snapshot;
}

} // namespace

TEST(Backup, TheDefaultSnapshotEncodesWithSortedKeysAndEmptyLists) {
    EXPECT_EQ(PlannerSnapshot().backupData(), emptyPlanner);
}

TEST(Backup, TheDefaultSnapshotDecodesBackToAnEqualOne) {
    EXPECT_EQ(PlannerSnapshot::decodeBackup(PlannerSnapshot().backupData()), PlannerSnapshot());
}

TEST(Backup, IsIndentedByTwoSpacesWithSortedKeysAtEveryLevel) {
    EXPECT_EQ(smallPlanner().backupData(), R"({
  "notes": [
    {
      "id": "2026-03-07",
      "text": "Hello\n",
      "updatedAt": 2
    }
  ],
  "schemaVersion": 1,
  "sessions": [
    {
      "createdAt": 3,
      "id": "7C9E6679-7425-40DE-944B-E07FC1F90AE7",
      "mode": "countdown",
      "segments": [
        {
          "duration": 60,
          "start": 3
        }
      ],
      "status": "finished",
      "target": 1500,
      "taskID": "0F8FAD5B-D9CB-469F-A165-70867728950E",
      "title": "Water"
    }
  ],
  "tasks": [
    {
      "createdAt": 86400.5,
      "id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
      "order": 1,
      "title": "Water"
    }
  ]
})");
}

TEST(Backup, OfAnInvalidPlannerIsNotWritten) {
    auto snapshot = smallPlanner();
    snapshot.tasks.push_back(snapshot.tasks.front());
    EXPECT_THROW(snapshot.backupData(), PlannerError);
}

TEST(Backup, OfANumberThatJSONCannotHoldIsNotWritten) {
    auto snapshot = smallPlanner();
    snapshot.tasks.push_back({otherID, "Read", {std::nan("")}, 2});
    EXPECT_NO_THROW(snapshot.validated());
    EXPECT_THROW(snapshot.backupData(), JsonError);
}

TEST(Backup, Of50000001BytesFailsBeforeAnyParsing) {
    EXPECT_EQ(sentenceOf(std::string(50'000'001, '\xFF')), "Backups must be smaller than 50 MB.");
    EXPECT_EQ(sentenceOf(padded(emptyPlanner, 50'000'001)), "Backups must be smaller than 50 MB.");
}

TEST(Backup, OfExactly50000000BytesIsRead) {
    EXPECT_EQ(PlannerSnapshot::decodeBackup(padded(emptyPlanner, 50'000'000)), PlannerSnapshot());
}

TEST(Backup, ThatIsNoJSONFailsWithTheReadersOwnError) {
    for (const auto backup :
         {""sv, "no JSON"sv, "{}"sv, "[]"sv, "SQLite format 3\0"sv, R"({"schemaVersion":1})"sv})
        EXPECT_THROW(PlannerSnapshot::decodeBackup(backup), JsonError) << backup;
}

TEST(Backup, IsValidatedAfterReading) {
    EXPECT_EQ(sentenceOf(R"({"notes":[],"schemaVersion":2,"sessions":[],"tasks":[]})"),
              "This backup uses an unsupported format.");
    EXPECT_EQ(
        sentenceOf(R"({"notes":[{"id":"a","text":"","updatedAt":0},{"id":"a","text":"","updatedAt":0}],)"
                   R"("schemaVersion":1,"sessions":[],"tasks":[]})"),
        "The backup contains duplicate records.");
    EXPECT_EQ(
        sentenceOf(R"({"notes":[],"schemaVersion":1,"sessions":[],"tasks":[)"
                   R"({"createdAt":0,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","order":0,"title":" "}]})"),
        "The backup contains invalid or excessively large records.");
}

TEST(Backup, MayBeCompactAndHaveItsKeysInAnyOrder) {
    EXPECT_EQ(PlannerSnapshot::decodeBackup(
                  R"({"tasks":[],"sessions":[],"later":{},"schemaVersion":1.0,"notes":[]})"),
              PlannerSnapshot());
}

TEST(Backup, AnExportAboveTheLimitIsStillWritten) {
    PlannerSnapshot snapshot;
    for (int day = 0; day < 11; ++day)
        snapshot.notes.push_back({std::to_string(day), std::string(4'999'999, 'x'), {0}});
    const auto bytes = snapshot.backupData();
    EXPECT_GT(bytes.size(), maximumBackupBytes);
    EXPECT_EQ(sentenceOf(bytes), "Backups must be smaller than 50 MB.");
}

RC_GTEST_PROP(Backup, OfEveryValidPlannerDecodesBackToAnEqualOne, ()) {
    const auto snapshot = *generators::validSnapshot();
    const auto bytes = snapshot.backupData();
    const auto restored = PlannerSnapshot::decodeBackup(bytes);
    RC_ASSERT(restored == snapshot);
    RC_ASSERT(restored.backupData() == bytes);
}

RC_GTEST_PROP(Backup, WithAnyByteChangedEitherStillReadsOrFailsClearly, ()) {
    auto bytes = (*generators::validSnapshot()).backupData();
    const auto place = *rc::gen::inRange<std::size_t>(0, bytes.size());
    bytes[place] = char(*rc::gen::inRange(0, 256));
    try {
        PlannerSnapshot::decodeBackup(bytes).validated();
    } catch (const PlannerError& error) {
        RC_ASSERT(std::string(error.what()) != "");
    } catch (const JsonError& error) {
        RC_ASSERT(std::string(error.what()).find(" byte ") != std::string::npos);
    }
}
