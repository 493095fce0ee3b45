#include "FocusDesk.h"

#include <QSignalSpy>
#include <QTest>

using orvane::FocusController;
using orvane::test::FakeClock;
using Desk = orvane::test::FocusDesk;
using orvane::test::storedCountdown;
using planner::FocusMode;
using planner::FocusSegment;
using planner::FocusSession;
using planner::FocusStatus;

class FocusControllerTests : public QObject {
    Q_OBJECT

private slots:
    void beginsIdle() {
        Desk desk;
        QVERIFY(!desk.focus.engine());
        QVERIFY(!desk.focus.isRunning());
        QCOMPARE(desk.focus.seconds(), 0.0);
        QCOMPARE(desk.focus.timeText(), QStringLiteral("00:00"));
        QCOMPARE(desk.focus.statusText(), QString());
    }

    void startingSavesARunningSessionOfTheTask() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 25);
        QCOMPARE(desk.saved.size(), 1u);
        const auto& session = desk.saved[0];
        QVERIFY(session.taskID == desk.task.id);
        QCOMPARE(session.title, desk.task.title);
        QVERIFY(session.mode == FocusMode::countdown);
        QCOMPARE(session.target, 1500.0);
        QVERIFY(session.status == FocusStatus::running);
        QVERIFY(session.createdAt == desk.clock.now());
        QVERIFY(session.segments.empty());
        QVERIFY(desk.focus.isRunning());
        QCOMPARE(desk.focus.timeText(), QStringLiteral("25:00"));
        QCOMPARE(desk.focus.statusText(), QStringLiteral("running"));
    }

    void aCountdownIsShownEverySecondSavedEveryFifteenAndCompletedOnce() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 25);
        QSignalSpy shown(&desk.focus, &FocusController::secondsChanged);
        desk.clock.advance(14);
        QCOMPARE(shown.size(), 14);
        QCOMPARE(desk.focus.timeText(), QStringLiteral("24:46"));
        QCOMPARE(desk.saved.size(), 1u);
        for (std::size_t checkpoint = 1; checkpoint < 100; ++checkpoint) {
            desk.clock.advance(checkpoint == 1 ? 1 : 15);
            QCOMPARE(desk.saved.size(), checkpoint + 1);
            QCOMPARE(desk.saved.back().segments.size(), checkpoint);
        }
        QVERIFY(desk.completed.empty());
        QCOMPARE(desk.clock.uptime(), 2485.0);

        desk.clock.advance(15);
        QCOMPARE(desk.clock.uptime(), 2500.0);
        QCOMPARE(desk.focus.seconds(), 0.0);
        QVERIFY(desk.session().status == FocusStatus::finished);
        QCOMPARE(desk.saved.size(), 101u);
        QVERIFY(desk.saved.back() == desk.session());
        QCOMPARE(desk.session().segments.size(), 100u);
        QCOMPARE(desk.session().activeDuration(), 1500.0);
        QCOMPARE(desk.completed.size(), 1u);
        QVERIFY(desk.completed[0] == desk.session());
        QCOMPARE(desk.clock.pending(), 0u);

        desk.clock.advance(1000);
        QCOMPARE(desk.completed.size(), 1u);
        QCOMPARE(desk.saved.size(), 101u);
    }

    void aCountdownWhoseEndFallsBetweenCheckpointsEndsInItsOwnSecond() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        desk.clock.advance(10);
        desk.focus.pause();
        desk.clock.advance(100);
        desk.focus.resume();
        desk.clock.advance(49);
        QCOMPARE(desk.focus.timeText(), QStringLiteral("00:01"));
        desk.clock.advance(1);
        QCOMPARE(desk.completed.size(), 1u);
        QCOMPARE(desk.session().activeDuration(), 60.0);
    }

    void aLateTickStillCountsOnlyTheTarget() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        // The machine was busy: no tick came through for long.
        desk.clock.setUptime(5000);
        desk.clock.advance(1);
        QCOMPARE(desk.completed.size(), 1u);
        QCOMPARE(desk.session().activeDuration(), 60.0);
    }

    void pausingAfterTheDeadlineCompletes() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        desk.clock.setUptime(desk.clock.uptime() + 60);
        desk.focus.pause();
        QCOMPARE(desk.completed.size(), 1u);
        QVERIFY(desk.saved.back().status == FocusStatus::finished);
        QCOMPARE(desk.clock.pending(), 0u);
        desk.focus.pause();
        QCOMPARE(desk.completed.size(), 1u);
    }

    void pausingBeforeTheDeadlineDoesNotComplete() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        desk.clock.advance(59.5);
        desk.focus.pause();
        QVERIFY(desk.completed.empty());
        QVERIFY(desk.saved.back().status == FocusStatus::paused);
        QCOMPARE(desk.saved.back().activeDuration(), 59.5);
        QCOMPARE(desk.clock.pending(), 0u);
        QCOMPARE(desk.focus.seconds(), 0.5);
    }

    void aPausedSessionStandsStill() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 25);
        desk.clock.advance(20);
        desk.focus.pause();
        const auto saves = desk.saved.size();
        desk.clock.advance(3600);
        QCOMPARE(desk.focus.seconds(), 20.0);
        QCOMPARE(desk.saved.size(), saves);
    }

    void resumingGoesOnAndCountsItsTicksAnew() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 25);
        desk.clock.advance(14);
        desk.focus.pause();
        desk.clock.advance(100);
        desk.focus.resume();
        QVERIFY(desk.saved.back().status == FocusStatus::running);
        const auto saves = desk.saved.size();
        desk.clock.advance(14);
        QCOMPARE(desk.saved.size(), saves);
        desk.clock.advance(1);
        QCOMPARE(desk.saved.size(), saves + 1);
        QCOMPARE(desk.focus.seconds(), 29.0);
    }

    void resumingWhileRunningNeitherCountsTwiceNorTicksTwice() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 25);
        desk.clock.advance(10);
        desk.focus.resume();
        QCOMPARE(desk.clock.tickers(), 1u);
        desk.clock.advance(10);
        QCOMPARE(desk.focus.seconds(), 20.0);
    }

    void finishingAStopwatchNeverCompletes() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 1);
        desk.clock.advance(90);
        desk.focus.finish();
        QVERIFY(desk.completed.empty());
        QVERIFY(desk.saved.back().status == FocusStatus::finished);
        QCOMPARE(desk.saved.back().activeDuration(), 90.0);
        QVERIFY(!desk.focus.engine()->anchorDate);
        QVERIFY(!desk.focus.engine()->anchorUptime);
        QCOMPARE(desk.clock.pending(), 0u);
    }

    void finishingACountdownEarlyDoesNotComplete() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        desk.clock.advance(30);
        desk.focus.finish();
        QVERIFY(desk.completed.empty());
        QVERIFY(desk.session().status == FocusStatus::finished);
        QCOMPARE(desk.session().activeDuration(), 30.0);
    }

    void finishingACountdownThatHasRunOutCompletes() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        desk.clock.setUptime(desk.clock.uptime() + 60);
        desk.focus.finish();
        QCOMPARE(desk.completed.size(), 1u);
        desk.focus.finish();
        QCOMPARE(desk.completed.size(), 1u);
    }

    void finishingAPausedSessionAddsNothing() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 1);
        desk.clock.advance(30);
        desk.focus.pause();
        desk.clock.advance(30);
        desk.focus.finish();
        QCOMPARE(desk.session().activeDuration(), 30.0);
        QVERIFY(desk.session().status == FocusStatus::finished);
    }

    void restoringARunningSessionShowsItPausedAtItsLastCheckpoint() {
        Desk desk;
        desk.focus.restore(storedCountdown(FocusStatus::running));
        QVERIFY(desk.focus.recovered());
        QVERIFY(desk.session().status == FocusStatus::paused);
        QCOMPARE(desk.focus.seconds(), 1380.0);
        QCOMPARE(desk.clock.pending(), 0u);
        QVERIFY(desk.saved.empty());
        desk.clock.advance(60);
        QCOMPARE(desk.focus.seconds(), 1380.0);

        desk.focus.resume();
        QVERIFY(!desk.focus.recovered());
        desk.clock.advance(10);
        QCOMPARE(desk.focus.seconds(), 1370.0);
    }

    void restoringAPausedOrFinishedSessionIsNoRecovery() {
        for (const auto status : {FocusStatus::paused, FocusStatus::finished}) {
            Desk desk;
            const auto session = storedCountdown(status);
            desk.focus.restore(session);
            QVERIFY(!desk.focus.recovered());
            QVERIFY(desk.session() == session);
            QCOMPARE(desk.focus.seconds(), 1380.0);
        }
    }

    void restoringNothingClearsTheController() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 25);
        desk.focus.restore(std::nullopt);
        QVERIFY(!desk.focus.engine());
        QCOMPARE(desk.focus.seconds(), 0.0);
        QCOMPARE(desk.clock.pending(), 0u);
        QCOMPARE(desk.saved.size(), 1u);

        desk.focus.restore(storedCountdown(FocusStatus::running));
        desk.focus.restore(std::nullopt);
        QVERIFY(!desk.focus.recovered());
    }

    void startingSavesAnOpenSessionAsFinishedFirst() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 25);
        desk.clock.advance(10);
        desk.focus.start(desk.task, FocusMode::countdown, 5);
        QCOMPARE(desk.saved.size(), 3u);
        QVERIFY(desk.saved[1].id == desk.saved[0].id);
        QVERIFY(desk.saved[1].status == FocusStatus::finished);
        QCOMPARE(desk.saved[1].activeDuration(), 10.0);
        QVERIFY(desk.saved[2].id != desk.saved[0].id);
        QVERIFY(desk.saved[2].status == FocusStatus::running);
        QCOMPARE(desk.clock.tickers(), 1u);
        QCOMPARE(desk.focus.timeText(), QStringLiteral("05:00"));
    }

    void aNewSessionIsNotARecoveredOne() {
        Desk desk;
        desk.focus.restore(storedCountdown(FocusStatus::running));
        desk.focus.start(desk.task, FocusMode::countdown, 5);
        QVERIFY(!desk.focus.recovered());
    }

    void withoutASessionNothingIsSaved() {
        Desk desk;
        desk.focus.pause();
        desk.focus.resume();
        desk.focus.finish();
        desk.focus.checkpoint();
        QVERIFY(desk.saved.empty());
        QVERIFY(desk.completed.empty());
        QCOMPARE(desk.clock.pending(), 0u);
    }

    void withoutAnOwnerItOnlyCounts() {
        FakeClock clock;
        FocusController focus(clock);
        focus.start(planner::PlannerTask(), FocusMode::countdown, 1);
        clock.advance(60);
        QVERIFY(!focus.isRunning());
        QCOMPARE(focus.seconds(), 0.0);
    }

    void aJumpOfTheWallClockChangesOnlyWhenALaterStretchBegan() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 25);
        const auto start = desk.clock.now();
        desk.clock.advance(5);
        desk.clock.stepWall(-7200);
        desk.clock.advance(10);
        desk.clock.advance(15);
        QCOMPARE(desk.session().segments.size(), 2u);
        QVERIFY(desk.session().segments[0] == (FocusSegment{start, 15}));
        QVERIFY(desk.session().segments[1] == (FocusSegment{start + 15 - 7200, 15}));
        QCOMPARE(desk.focus.seconds(), 30.0);
    }

    void sleepIsNotCounted() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::countdown, 25);
        desk.clock.advance(10);
        desk.clock.sleep(9 * 3600);
        desk.clock.advance(5);
        QCOMPARE(desk.focus.seconds(), 1485.0);
        QCOMPARE(desk.session().activeDuration(), 15.0);
    }

    void anUptimeThatGoesBackCountsNothingForThatStretch() {
        Desk desk;
        desk.focus.start(desk.task, FocusMode::stopwatch, 25);
        desk.clock.setUptime(500);
        desk.clock.advance(15);
        QVERIFY(desk.session().segments.empty());
        desk.clock.advance(15);
        QCOMPARE(desk.session().activeDuration(), 15.0);
    }

    void theOwnerMayBeginAnotherSessionWhenOneCompletes() {
        Desk desk;
        int begun = 0;
        desk.focus.onCompleted = [&](const FocusSession& session) {
            QVERIFY(session.status == FocusStatus::finished);
            if (++begun < 3) desk.focus.start(desk.task, FocusMode::countdown, 1);
            // The session is the caller's to read for as long as the callback runs.
            QCOMPARE(session.activeDuration(), 60.0);
        };
        desk.focus.start(desk.task, FocusMode::countdown, 1);
        desk.clock.advance(120);
        QCOMPARE(begun, 2);
        QVERIFY(desk.focus.isRunning());
        QCOMPARE(desk.clock.tickers(), 1u);
        desk.clock.advance(60);
        QCOMPARE(begun, 3);
        QCOMPARE(desk.clock.tickers(), 0u);
    }

    void aReleasedControllerStopsTicking() {
        FakeClock clock;
        {
            FocusController focus(clock);
            focus.start(planner::PlannerTask(), FocusMode::stopwatch, 25);
            QCOMPARE(clock.tickers(), 1u);
        }
        QCOMPARE(clock.tickers(), 0u);
        clock.advance(5);
    }

    void viewsAreToldOfEachChange() {
        Desk desk;
        QSignalSpy engine(&desk.focus, &FocusController::engineChanged);
        QSignalSpy recovered(&desk.focus, &FocusController::recoveredChanged);
        desk.focus.restore(storedCountdown(FocusStatus::running));
        QCOMPARE(engine.size(), 1);
        QCOMPARE(recovered.size(), 1);
        desk.focus.resume();
        QCOMPARE(engine.size(), 2);
        QCOMPARE(recovered.size(), 2);
        desk.focus.pause();
        QCOMPARE(engine.size(), 3);
        desk.focus.finish();
        QCOMPARE(engine.size(), 4);
        QCOMPARE(recovered.size(), 2);
    }

    void theLongestCountdownIsSavedEveryFifteenSecondsOfItsDay() {
        Desk desk;
        std::size_t saves = 0;
        desk.focus.onCheckpoint = [&](const FocusSession&) { ++saves; };
        desk.focus.start(desk.task, FocusMode::countdown, 1440);
        desk.clock.advance(86400);
        QCOMPARE(saves, 5761u);
        QCOMPARE(desk.completed.size(), 1u);
        QCOMPARE(desk.session().segments.size(), 5760u);
    }
};

QTEST_GUILESS_MAIN(FocusControllerTests)
#include "FocusControllerTests.moc"
