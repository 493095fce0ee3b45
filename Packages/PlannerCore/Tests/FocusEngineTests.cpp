#include <PlannerCore/FocusEngine.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using planner::FocusEngine;
using planner::FocusMode;
using planner::FocusSession;
using planner::FocusStatus;
using planner::Instant;

namespace {

constexpr Instant noon{700'000'000};

FocusSession session(FocusMode mode, double target = 60) {
    return FocusSession(planner::Uuid::random(), "Write the letter", mode, target, noon);
}

FocusEngine engine(FocusMode mode, double target = 60) {
    return FocusEngine(session(mode, target), noon, 100, false);
}

bool anchored(const FocusEngine& engine) {
    EXPECT_EQ(engine.anchorDate.has_value(), engine.anchorUptime.has_value());
    return engine.anchorDate.has_value();
}

} // namespace

TEST(FocusEngine, ACountdownOfAMinuteCountsUpToItsTargetAndFinishesThere) {
    auto counting = engine(FocusMode::countdown);
    EXPECT_EQ(counting.elapsed(130), 30);
    EXPECT_EQ(counting.displayed(130), 30);
    EXPECT_EQ(counting.elapsed(500), 60);
    EXPECT_EQ(counting.displayed(500), 0);

    counting.checkpoint(noon + 400, 500);
    ASSERT_EQ(counting.session.segments.size(), 1u);
    EXPECT_EQ(counting.session.segments[0], (planner::FocusSegment{noon, 60}));
    EXPECT_EQ(counting.session.status, FocusStatus::finished);
    EXPECT_FALSE(anchored(counting));
}

TEST(FocusEngine, AStopwatchShowsTheTimeSpentAndNeverFinishesItself) {
    auto counting = engine(FocusMode::stopwatch);
    EXPECT_EQ(counting.displayed(130), 30);
    counting.checkpoint(noon + 400, 500);
    EXPECT_EQ(counting.session.activeDuration(), 400);
    EXPECT_EQ(counting.session.status, FocusStatus::running);
    EXPECT_EQ(counting.displayed(510), 410);
}

TEST(FocusEngine, AnUptimeBeforeTheAnchorCountsNothing) {
    auto counting = engine(FocusMode::stopwatch);
    EXPECT_EQ(counting.elapsed(99), 0);
    counting.checkpoint(noon + 5, 99);
    EXPECT_TRUE(counting.session.segments.empty());
    EXPECT_EQ(counting.session.status, FocusStatus::running);
    // The stretch goes on from the smaller uptime.
    EXPECT_EQ(counting.elapsed(109), 10);
}

TEST(FocusEngine, ExtendingAddsFiveMinutesUpToADay) {
    auto counting = engine(FocusMode::countdown, 600);
    counting.extend();
    EXPECT_EQ(counting.session.target, 900);
    counting = engine(FocusMode::countdown, 86300);
    counting.extend();
    EXPECT_EQ(counting.session.target, 86400);
    counting.extend();
    EXPECT_EQ(counting.session.target, 86400);
}

TEST(FocusEngine, APausedCountdownCanBeExtended) {
    auto counting = engine(FocusMode::countdown);
    counting.pause(noon + 10, 110);
    counting.extend();
    EXPECT_EQ(counting.session.target, 360);
    EXPECT_EQ(counting.displayed(999), 350);
}

TEST(FocusEngine, AStopwatchIsNotExtended) {
    auto counting = engine(FocusMode::stopwatch);
    const auto before = counting;
    counting.extend();
    EXPECT_EQ(counting, before);
}

TEST(FocusEngine, RecoveringARunningSessionPausesItAtItsStoredTime) {
    auto stored = session(FocusMode::countdown, 1500);
    stored.segments = {{noon, 70}, {noon + 100, 50}};
    const FocusEngine recovered(stored, noon + 9000, 50'000, true);
    EXPECT_EQ(recovered.session.status, FocusStatus::paused);
    EXPECT_FALSE(anchored(recovered));
    for (const auto uptime : {0.0, 50'000.0, 1e9}) EXPECT_EQ(recovered.elapsed(uptime), 120);
}

TEST(FocusEngine, RecoveringLeavesAPausedAndAFinishedSessionAsTheyAre) {
    for (const auto status : {FocusStatus::paused, FocusStatus::finished}) {
        auto stored = session(FocusMode::countdown);
        stored.status = status;
        const FocusEngine recovered(stored, noon, 100, true);
        EXPECT_EQ(recovered.session, stored);
        EXPECT_FALSE(anchored(recovered));
    }
}

TEST(FocusEngine, PausingClosesTheStretchAndStopsCounting) {
    auto counting = engine(FocusMode::countdown);
    counting.pause(noon + 20, 120);
    EXPECT_EQ(counting.session.status, FocusStatus::paused);
    EXPECT_FALSE(anchored(counting));
    EXPECT_EQ(counting.elapsed(1000), 20);
    counting.pause(noon + 30, 130);
    EXPECT_EQ(counting.session.segments.size(), 1u);
}

TEST(FocusEngine, PausingAfterTheTargetFinishes) {
    auto counting = engine(FocusMode::countdown);
    counting.pause(noon + 60, 160);
    EXPECT_EQ(counting.session.status, FocusStatus::finished);
    EXPECT_FALSE(anchored(counting));
}

TEST(FocusEngine, ResumingStartsANewStretchAtTheWallClockOfThatMoment) {
    auto counting = engine(FocusMode::countdown);
    counting.pause(noon + 20, 120);
    counting.resume(noon + 500, 600);
    EXPECT_EQ(counting.session.status, FocusStatus::running);
    counting.checkpoint(noon + 505, 605);
    ASSERT_EQ(counting.session.segments.size(), 2u);
    EXPECT_EQ(counting.session.segments[1], (planner::FocusSegment{noon + 500, 5}));
}

TEST(FocusEngine, ResumingARunningSessionDoesNotMoveItsAnchor) {
    auto counting = engine(FocusMode::stopwatch);
    const auto before = counting;
    counting.resume(noon + 50, 150);
    EXPECT_EQ(counting, before);
}

TEST(FocusEngine, AFinishedSessionStaysAsItIs) {
    auto finished = engine(FocusMode::countdown);
    finished.checkpoint(noon + 60, 160);
    const auto before = finished;
    finished.pause(noon + 70, 170);
    finished.checkpoint(noon + 70, 170);
    finished.resume(noon + 70, 170);
    finished.extend();
    EXPECT_EQ(finished, before);
}

TEST(FocusEngine, FinishingClosesTheStretchAndLeavesTheStatusToItsCaller) {
    auto counting = engine(FocusMode::stopwatch);
    counting.finish(noon + 20, 120);
    EXPECT_EQ(counting.session.status, FocusStatus::running);
    EXPECT_FALSE(anchored(counting));
    EXPECT_EQ(counting.session.activeDuration(), 20);
}

TEST(FocusEngine, AJumpOfTheWallClockChangesNoDuration) {
    auto counting = engine(FocusMode::stopwatch);
    counting.checkpoint(noon - 7200, 115);
    counting.checkpoint(noon + 7200, 130);
    ASSERT_EQ(counting.session.segments.size(), 2u);
    EXPECT_EQ(counting.session.segments[0], (planner::FocusSegment{noon, 15}));
    EXPECT_EQ(counting.session.segments[1], (planner::FocusSegment{noon - 7200, 15}));
}

TEST(FocusEngine, OnlyRunningOutCountsAsTheDeadline) {
    auto counting = engine(FocusMode::countdown);
    EXPECT_FALSE(counting.finishedAtDeadline(FocusStatus::running));
    counting.checkpoint(noon + 60, 160);
    EXPECT_TRUE(counting.finishedAtDeadline(FocusStatus::running));
    EXPECT_FALSE(counting.finishedAtDeadline(FocusStatus::paused));
    EXPECT_FALSE(counting.finishedAtDeadline(FocusStatus::finished));

    auto stopped = engine(FocusMode::countdown);
    stopped.checkpoint(noon + 30, 130);
    stopped.session.status = FocusStatus::finished;
    EXPECT_FALSE(stopped.finishedAtDeadline(FocusStatus::running));

    auto stopwatch = engine(FocusMode::stopwatch);
    stopwatch.checkpoint(noon + 90, 190);
    stopwatch.session.status = FocusStatus::finished;
    EXPECT_FALSE(stopwatch.finishedAtDeadline(FocusStatus::running));
}

// However its time is cut into stretches, a countdown records its target to the last bit and runs out
// at the first checkpoint at or after it.
RC_GTEST_PROP(FocusEngineProperty, ACountdownRecordsExactlyItsTarget, ()) {
    const auto target = 60.0 * *rc::gen::inRange(1, 1441);
    auto counting = FocusEngine(session(FocusMode::countdown, target), noon, 100, false);
    double uptime = 100;
    while (counting.session.status == FocusStatus::running) {
        uptime += target * *rc::gen::inRange(100, 10'000) / 10'007;
        const auto due = counting.elapsed(uptime) == target;
        counting.checkpoint(noon + uptime, uptime);
        RC_ASSERT(counting.session.activeDuration() <= target);
        RC_ASSERT((counting.session.status == FocusStatus::finished) == due);
        if (*rc::gen::inRange(0, 4) == 0) {
            counting.pause(noon + uptime, uptime);
            uptime += 1000;
            counting.resume(noon + uptime, uptime);
        }
    }
    RC_ASSERT(counting.session.activeDuration() == target);
    RC_ASSERT(counting.displayed(uptime) == 0);
}
