#include <PlannerCore/Detail/RecordCoding.h>

#include <gtest/gtest.h>

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

} // namespace

TEST(TaskCoding, ATaskWithoutCompletedAtAndReminderAtEncodesWithFourKeysOnly) {
    EXPECT_EQ(encoded(PlannerTask(someID, "Water the plants", {86400.5}, -3)),
              R"({"createdAt":86400.5,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","order":-3,)"
              R"("title":"Water the plants"})");
}

TEST(TaskCoding, ATaskReadsBackAsItWas) {
    PlannerTask task(someID, "Call \"Ada\"\n\t\\ \x01 – ½ 👩‍👩‍👧", {0.1}, 7);
    task.completedAt = Instant{-1e-300};
    task.reminderAt = Instant{9007199254740994};
    EXPECT_EQ(decodeTask(encoded(task)), task);
}

TEST(SessionCoding, ASessionReadsBackAsItWas) {
    FocusSession session(someID, "Read", FocusMode::stopwatch, 1500, {12});
    session.status = FocusStatus::paused;
    session.segments = {{{12}, 60}, {{100.25}, 30.5}};
    EXPECT_EQ(decodeSession(encoded(session)), session);
}

TEST(NoteCoding, ANoteReadsBackAsItWas) {
    const DailyNote note("2026-03-07", "", {5});
    EXPECT_EQ(decodeNote(encoded(note)), note);
}
