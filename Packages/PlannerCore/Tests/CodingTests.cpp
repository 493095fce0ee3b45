#include <PlannerCore/Detail/RecordCoding.h>

#include "Generators.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <string>

using namespace planner;
using namespace planner::detail;

namespace {

template <class Record>
std::string encoded(const Record& record) {
    std::string bytes;
    encode(record, bytes);
    return bytes;
}

const auto someID = *Uuid::parse("0F8FAD5B-D9CB-469F-A165-70867728950E");
const auto otherID = *Uuid::parse("7C9E6679-7425-40DE-944B-E07FC1F90AE7");

} // namespace

TEST(TaskCoding, ATaskWithoutCompletedAtAndReminderAtEncodesWithFourKeysOnly) {
    EXPECT_EQ(encoded(PlannerTask(someID, "Water the plants", {86400.5}, -3)),
              R"({"createdAt":86400.5,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","order":-3,)"
              R"("title":"Water the plants"})");
}

TEST(TaskCoding, ATaskWithAllItsFieldsEncodesWithSortedKeys) {
    PlannerTask task(someID, "Water", {1}, 2);
    task.completedAt = Instant{3};
    task.reminderAt = Instant{4};
    EXPECT_EQ(encoded(task), R"({"completedAt":3,"createdAt":1,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E",)"
                             R"("order":2,"reminderAt":4,"title":"Water"})");
}

TEST(TaskCoding, ATaskWhoseCompletedAtIsNullIsNotComplete) {
    const auto task = decodeTask(R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","title":"Water",)"
                                 R"("createdAt":1,"completedAt":null,"reminderAt":null,"order":2})");
    EXPECT_FALSE(task.isComplete());
    EXPECT_EQ(task, PlannerTask(someID, "Water", {1}, 2));
}

TEST(TaskCoding, IdentifiersAreReadInEitherLetterCase) {
    const auto task = decodeTask(
        R"({"id":"0f8fad5b-d9cb-469F-a165-70867728950e","title":"Water","createdAt":1,"order":2})");
    EXPECT_EQ(task.id, someID);
}

TEST(NoteCoding, ANoteEncodesWithSortedKeys) {
    EXPECT_EQ(encoded(DailyNote("2026-03-07", "First\nSecond", {5.25})),
              R"({"id":"2026-03-07","text":"First\nSecond","updatedAt":5.25})");
}

TEST(SessionCoding, ASessionEncodesWithSortedKeysAndItsSegmentsInOrder) {
    FocusSession session(otherID, "Read", FocusMode::countdown, 1500, {12});
    session.id = someID;
    session.segments = {{{100}, 60}, {{12}, 30.5}};
    EXPECT_EQ(encoded(session),
              R"({"createdAt":12,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","mode":"countdown",)"
              R"("segments":[{"duration":60,"start":100},{"duration":30.5,"start":12}],"status":"running",)"
              R"("target":1500,"taskID":"7C9E6679-7425-40DE-944B-E07FC1F90AE7","title":"Read"})");
}

TEST(SessionCoding, ASessionWhoseModeDiffersFromCountdownOnlyInLetterCaseFailsToDecode) {
    auto json = encoded(FocusSession(someID, "Read", FocusMode::countdown, 1500, {12}));
    EXPECT_NO_THROW(decodeSession(json));
    json.replace(json.find("countdown"), 9, "Countdown");
    EXPECT_THROW(decodeSession(json), JsonError);
}

TEST(SessionCoding, EveryModeAndStatusReadsBackFromItsWord) {
    for (const auto mode : {FocusMode::countdown, FocusMode::stopwatch})
        for (const auto status : {FocusStatus::running, FocusStatus::paused, FocusStatus::finished}) {
            FocusSession session(someID, "Read", mode, 1500, {12});
            session.status = status;
            EXPECT_EQ(decodeSession(encoded(session)), session);
        }
}

TEST(FocusSession, ActiveDurationIsTheSumOfTheSegments) {
    FocusSession session(someID, "Read", FocusMode::countdown, 1500, {12});
    EXPECT_EQ(session.activeDuration(), 0);
    session.segments = {{{12}, 60}, {{100}, 30.5}};
    EXPECT_EQ(session.activeDuration(), 90.5);
}

TEST(FocusSession, BeginsRunningWithAFreshIdentifierAndNothingCounted) {
    const FocusSession session(someID, "Read", FocusMode::stopwatch, 1500, {12});
    EXPECT_NE(session.id, FocusSession(someID, "Read", FocusMode::stopwatch, 1500, {12}).id);
    EXPECT_EQ(session.status, FocusStatus::running);
    EXPECT_EQ(session.createdAt, Instant{12});
    EXPECT_TRUE(session.segments.empty());
}

TEST(FocusMode, AllModesAreListedInTheirOrder) {
    EXPECT_EQ(allFocusModes.size(), 2u);
    EXPECT_EQ(rawValue(allFocusModes[0]), "countdown");
    EXPECT_EQ(rawValue(allFocusModes[1]), "stopwatch");
}

RC_GTEST_PROP(TaskCoding, DecodingUndoesEncoding, (const PlannerTask& task)) {
    RC_ASSERT(decodeTask(encoded(task)) == task);
}

RC_GTEST_PROP(NoteCoding, DecodingUndoesEncoding, (const DailyNote& note)) {
    RC_ASSERT(decodeNote(encoded(note)) == note);
}

RC_GTEST_PROP(SessionCoding, DecodingUndoesEncoding, (const FocusSession& session)) {
    RC_ASSERT(decodeSession(encoded(session)) == session);
}

RC_GTEST_PROP(SnapshotCoding, DecodingUndoesEncoding, (const PlannerSnapshot& snapshot)) {
    std::string bytes;
    encodeIndented(snapshot, bytes);
    RC_ASSERT(decodeSnapshot(bytes) == snapshot);
}

RC_GTEST_PROP(TaskCoding, EqualTasksHaveEqualBytes, (PlannerTask task)) {
    // Equal, though not the same bits.
    task.createdAt = {0.0};
    task.completedAt = Instant{-0.0};
    auto twin = task;
    twin.createdAt = {-0.0};
    twin.completedAt = Instant{0.0};
    RC_ASSERT(task == twin);
    RC_ASSERT(encoded(task) == encoded(twin));
}

RC_GTEST_PROP(SessionCoding, EqualSessionsHaveEqualBytes, (FocusSession session)) {
    auto twin = session;
    session.segments.push_back({{0.0}, -0.0});
    twin.segments.push_back({{-0.0}, 0.0});
    RC_ASSERT(session == twin);
    RC_ASSERT(encoded(session) == encoded(twin));
}

RC_GTEST_PROP(TaskCoding, DifferentTasksHaveDifferentBytes,
              (const PlannerTask& left, const PlannerTask& right)) {
    RC_ASSERT((left == right) == (encoded(left) == encoded(right)));
}
