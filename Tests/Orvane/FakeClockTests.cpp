#include "Doubles/FakeClock.h"

#include <QTest>

#include <memory>
#include <stdexcept>
#include <string>

using orvane::Timer;
using orvane::test::FakeClock;

class FakeClockTests : public QObject {
    Q_OBJECT

private slots:
    void delaysRunWhenTheyAreDueAndInTheOrderOfTheirMaking() {
        FakeClock clock;
        std::string ran;
        const auto c = clock.after(2, [&] { ran += 'c'; });
        const auto a = clock.after(1, [&] { ran += 'a'; });
        const auto b = clock.after(1, [&] { ran += 'b'; });
        QCOMPARE(ran, "");
        clock.advance(0.999);
        QCOMPARE(ran, "");
        clock.advance(0.001);
        QCOMPARE(ran, "ab");
        clock.advance(10);
        QCOMPARE(ran, "abc");
        QCOMPARE(clock.pending(), 0u);
    }

    void eachActionSeesTheClocksAtItsOwnMoment() {
        FakeClock clock(planner::Instant{500}, 100);
        double uptime = 0;
        double wall = 0;
        const auto timer = clock.after(7, [&] {
            uptime = clock.uptime();
            wall = clock.now().seconds;
        });
        clock.advance(60);
        QCOMPARE(uptime, 107.0);
        QCOMPARE(wall, 507.0);
        QCOMPARE(clock.uptime(), 160.0);
        QCOMPARE(clock.now().seconds, 560.0);
    }

    void aDelayOfNoneWaitsForTheNextTurn() {
        FakeClock clock;
        int ran = 0;
        std::unique_ptr<Timer> second;
        const auto first = clock.after(0, [&] {
            ++ran;
            second = clock.after(0, [&] { ++ran; });
        });
        QCOMPARE(ran, 0);
        clock.settle();
        QCOMPARE(ran, 2);
    }

    void aDestroyedTimerDoesNotRun() {
        FakeClock clock;
        auto timer = clock.after(1, [] { QFAIL("it was cancelled"); });
        timer.reset();
        clock.advance(2);
    }

    void aTickerMayEndItself() {
        FakeClock clock;
        int ticks = 0;
        std::unique_ptr<Timer> ticker;
        ticker = clock.every(0.5, 0, [&, token = std::make_shared<int>(3)] {
            if (++ticks == *token) ticker.reset();
            QCOMPARE(*token, 3);
        });
        QCOMPARE(clock.tickers(), 1u);
        clock.advance(100);
        QCOMPARE(ticks, 3);
        QCOMPARE(clock.tickers(), 0u);
    }

    void steppingOneClockRunsNothingAndLeavesTheOtherAlone() {
        FakeClock clock(planner::Instant{500}, 100);
        int ran = 0;
        const auto timer = clock.after(10, [&] { ++ran; });
        clock.stepWall(-3600);
        clock.sleep(7200);
        QCOMPARE(clock.uptime(), 100.0);
        QCOMPARE(clock.now().seconds, 4100.0);
        clock.setUptime(9000);
        QCOMPARE(ran, 0);
        clock.advance(9);
        QCOMPARE(ran, 0);
        clock.advance(1);
        QCOMPARE(ran, 1);
    }

    void timeIsNotAdvancedBackwards() {
        FakeClock clock;
        QVERIFY_EXCEPTION_THROWN(clock.advance(-1), std::invalid_argument);
    }
};

QTEST_GUILESS_MAIN(FakeClockTests)
#include "FakeClockTests.moc"
