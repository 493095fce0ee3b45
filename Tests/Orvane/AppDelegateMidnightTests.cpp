#include "App/AppDelegate.h"

#include "WindowFixture.h"

#include <PlannerCore/Calendar.h>

#include <QTest>

#include <system_error>

using namespace orvane;
using namespace orvane::test;
using planner::Calendar;
using planner::Instant;

namespace {

const QString newDay = QStringLiteral("A new day is here. Your unfinished tasks are still with you.");

constexpr double hour = 3600;

Instant unixTime(double seconds) {
    return {seconds - 978'307'200};
}

/// 10 March 2026, 23:00 in Berlin.
const Instant evening = unixTime(1'773'180'000);

/// The program, launched at some moment in some zone.
struct Running {
    explicit Running(Instant now = evening, const char* zone = "Europe/Berlin", bool opens = true)
        : desk(false), delegate(desk.model.platform.platform, model(), *desk.coordinator, [] {}) {
        if (!opens) platform().dataFolder.failure = std::make_error_code(std::errc::permission_denied);
        platform().events.status = CalendarAuthorization::fullAccess;
        platform().clock.setCalendar(Calendar(zone));
        platform().clock.setNow(now);
        model().selectNoteDay(now);
        model().followToday();
        delegate.launch();
        platform().settle();
        questions = platform().events.questions.size();
    }

    FakePlatform& platform() { return desk.model.platform; }
    AppModel& model() { return *desk.model.model; }
    void pass(double seconds) {
        platform().clock.advance(seconds);
        platform().settle();
    }
    /// Whether the day was rolled over since this was last asked.
    bool rolled() {
        const bool told = model().notice() == newDay;
        model().setNotice(std::nullopt);
        return told;
    }
    /// How often the calendar was read since the launch.
    std::size_t readings() { return platform().events.questions.size() - questions; }

    WindowFixture desk;
    AppDelegate delegate;
    std::size_t questions = 0;
};

} // namespace

class AppDelegateMidnightTests : public QObject {
    Q_OBJECT

private slots:
    void midnightBringsTheNewDayAndTheOneAfterIt() {
        Running app;
        app.pass(hour - 0.01);
        QVERIFY(!app.rolled());
        QCOMPARE(app.readings(), std::size_t(0));
        QCOMPARE(app.model().noteDay(), QStringLiteral("2026-03-10"));
        app.pass(0.01);
        QVERIFY(app.rolled());
        QCOMPARE(app.readings(), std::size_t(1));
        QCOMPARE(app.model().noteDay(), QStringLiteral("2026-03-11"));
        app.pass(24 * hour - 0.01);
        QVERIFY(!app.rolled());
        app.pass(0.01);
        QVERIFY(app.rolled());
        QCOMPARE(app.model().noteDay(), QStringLiteral("2026-03-12"));
    }

    void midnightBringsTheRemindersInLine() {
        Running app;
        app.desk.model.add(QStringLiteral("Tea"));
        app.platform().settle();
        app.platform().notifications.calls.clear();
        app.pass(hour);
        QVERIFY(!app.platform().notifications.calls.isEmpty());
    }

    void aNoteBeingWrittenKeepsItsDayAtMidnight() {
        Running app;
        app.model().setEditingNote(true);
        app.pass(hour);
        QVERIFY(app.rolled());
        QCOMPARE(app.model().noteDay(), QStringLiteral("2026-03-10"));
    }

    void aClockSetBackMakesTheTimerWaitAgain() {
        Running app;
        app.platform().clock.stepWall(-0.5 * hour);
        app.pass(hour);
        QVERIFY(!app.rolled());
        QCOMPARE(app.readings(), std::size_t(0));
        app.pass(0.5 * hour);
        QVERIFY(app.rolled());
        QCOMPARE(app.model().noteDay(), QStringLiteral("2026-03-11"));
    }

    void aClockSetBackByDaysBringsNoNewDay() {
        Running app;
        app.platform().clock.stepWall(-48 * hour);
        app.pass(hour);
        QVERIFY(!app.rolled());
        QCOMPARE(app.platform().clock.pending(), std::size_t(1));
    }

    void aTimerThatIsEarlyWaitsForAWholeSecond() {
        Running app;
        app.platform().clock.stepWall(-0.01);
        app.pass(hour);
        QVERIFY(!app.rolled());
        app.pass(0.99);
        QVERIFY(!app.rolled());
        app.pass(0.01);
        QVERIFY(app.rolled());
    }

    void aLaunchJustBeforeMidnightWaitsForAWholeSecond() {
        Running app(evening + (hour - 0.25));
        app.pass(0.75);
        QVERIFY(!app.rolled());
        app.pass(0.25);
        QVERIFY(app.rolled());
        QCOMPARE(app.model().noteDay(), QStringLiteral("2026-03-11"));
    }

    void theDaysOfTheClockChangesEndAtTheirOwnMidnight_data() {
        QTest::addColumn<double>("start");
        QTest::addColumn<double>("length");
        QTest::addColumn<QString>("next");
        QTest::newRow("23 hours") << 1'774'738'830.0 << 23 * hour - 30 << "2026-03-30";
        QTest::newRow("25 hours") << 1'792'879'230.0 << 25 * hour - 30 << "2026-10-26";
    }

    void theDaysOfTheClockChangesEndAtTheirOwnMidnight() {
        QFETCH(double, start);
        QFETCH(double, length);
        QFETCH(QString, next);
        Running app(unixTime(start));
        app.pass(length - 0.01);
        QVERIFY(!app.rolled());
        app.pass(0.02);
        QVERIFY(app.rolled());
        QCOMPARE(app.model().noteDay(), next);
        app.pass(24 * hour - 0.02);
        QVERIFY(!app.rolled());
        app.pass(0.02);
        QVERIFY(app.rolled());
    }

    void aMidnightThatTheClocksSkipIsWhereTheyGoOn() {
        // 3 November 2018, 23:59 in Sao Paulo; the next minute is 01:00.
        Running app(unixTime(1'541'300'340), "America/Sao_Paulo");
        app.pass(59.9);
        QVERIFY(!app.rolled());
        app.pass(0.1);
        QVERIFY(app.rolled());
        QCOMPARE(app.model().noteDay(), QStringLiteral("2018-11-04"));
        app.pass(23 * hour - 1);
        QVERIFY(!app.rolled());
        app.pass(1);
        QVERIFY(app.rolled());
    }

    void waitingAnewIsForTheMidnightOfTheZoneThatHoldsNow() {
        Running app;
        app.platform().clock.setCalendar(Calendar("America/New_York"));
        app.delegate.scheduleMidnight();
        app.pass(hour);
        QVERIFY(!app.rolled());
        app.pass(5 * hour - 1);
        QVERIFY(!app.rolled());
        app.pass(1);
        QVERIFY(app.rolled());
    }

    void wakingAfterMidnightSaysNothingByItself() {
        Running app;
        app.platform().clock.sleep(8 * hour);
        app.delegate.scheduleMidnight();
        app.pass(17 * hour - 1);
        QVERIFY(!app.rolled());
        app.pass(1);
        QVERIFY(app.rolled());
    }

    void aPlannerThatCouldNotBeOpenedKeepsItsRemindersAtMidnight() {
        Running app(evening, "Europe/Berlin", false);
        QVERIFY(app.model().storageFailed());
        app.platform().notifications.calls.clear();
        app.pass(hour);
        QCOMPARE(app.platform().notifications.calls, QStringList());
        QVERIFY(!app.rolled());
        QCOMPARE(app.readings(), std::size_t(1));
    }

    void theEndOfTheProgramEndsTheWaiting() {
        Running app;
        app.delegate.quit();
        app.platform().settle();
        QCOMPARE(app.platform().clock.pending(), std::size_t(0));
        app.pass(hour);
        QVERIFY(!app.rolled());
    }
};

QTEST_GUILESS_MAIN(AppDelegateMidnightTests)
#include "AppDelegateMidnightTests.moc"
