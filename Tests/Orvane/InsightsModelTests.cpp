#include "Doubles/PastPlanner.h"
#include "Model/InsightsModel.h"
#include "Orvane/ModelFixture.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;

namespace {

/// The week's model in front of a planner that is open. Now is a Tuesday, 02:46 in Berlin.
class Week : public ModelFixture {
public:
    explicit Week(const planner::PlannerSnapshot& past = {}) {
        store(past);
        load();
        week.setModel(model.get());
        week.setActive(true);
    }

    QVariantList each(const char* field) const {
        QVariantList values;
        for (const auto& day : week.days()) values.append(day.toMap().value(QLatin1String(field)));
        return values;
    }

    InsightsModel week;
};

planner::PlannerSnapshot ordinaryWeek() {
    const FakeClock clock;
    PastPlanner past(clock);
    past.complete(7, 12, "Before the week");
    past.complete(6, 0, "At its first moment");
    past.complete(0, 1, "Today");
    past.focus(6, 12, "Read", 50);
    past.focus(1, 23.5, "Write", 61);
    past.focus(3, 12, "Think", 0.5);
    return past.snapshot;
}

} // namespace

class InsightsModelTests : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void itShowsSevenDaysWithTodayLast() {
        const Week house;
        QCOMPARE(house.each("name"), QVariantList({"Wed", "Thu", "Fri", "Sat", "Sun", "Mon", "Tue"}));
        QCOMPARE(house.each("today"), QVariantList({false, false, false, false, false, false, true}));
        QCOMPARE(house.each("fullName").last(), QVariant("Tuesday, 10 March 2026"));
        QCOMPARE(house.each("value"), QVariantList({"0", "0", "0", "0", "0", "0", "0"}));
        QCOMPARE(house.week.axisStep(), 25.0);
    }

    void aSessionAcrossMidnightIsShownOnBothDays() {
        const Week house(ordinaryWeek());
        QCOMPARE(house.each("minutes"), QVariantList({50.0, 0.0, 0.0, 0.5, 0.0, 30.0, 31.0}));
        QCOMPARE(house.each("value"), QVariantList({"50", "0", "0", "<1", "0", "30", "31"}));
        QCOMPARE(house.week.focusMinutes(), 111);
        QCOMPARE(house.week.daysWithFocus(), 4);
        QCOMPARE(house.week.tasksCompleted(), 2);
    }

    void reopeningATaskTakesItOutOfTheCountAtOnce() {
        Week house(ordinaryWeek());
        house.model->toggle(house.task(1));
        QCOMPARE(house.week.tasksCompleted(), 1);
        house.model->toggle(house.task(1));
        QCOMPARE(house.week.tasksCompleted(), 2);
    }

    void aRemovedTaskIsNotCounted() {
        Week house(ordinaryWeek());
        house.model->deleteTask(house.task(2));
        QCOMPARE(house.week.tasksCompleted(), 1);
        house.model->undoDelete();
        QCOMPARE(house.week.tasksCompleted(), 2);
    }

    void midnightMovesTheWeekOn() {
        Week house(ordinaryWeek());
        const QSignalSpy changes(&house.week, &InsightsModel::weekChanged);
        house.platform.clock.advance(22 * 3600);
        house.model->followToday();
        QCOMPARE(changes.count(), 1);
        QCOMPARE(house.each("name").last(), QVariant("Wed"));
        QCOMPARE(house.each("minutes"), QVariantList({0.0, 0.0, 0.5, 0.0, 30.0, 31.0, 0.0}));
        QCOMPARE(house.week.tasksCompleted(), 1);
    }

    void anotherTimeZoneDrawsTheDaysAnew() {
        Week house(ordinaryWeek());
        house.platform.clock.setCalendar(planner::Calendar("America/New_York"));
        house.model->followToday();
        QCOMPARE(house.each("name").last(), QVariant("Mon"));
        QCOMPARE(house.each("minutes").last(), QVariant(61.0));
    }

    void aRunningSessionIsTakenInAtItsCheckpointsAndNotEachSecond() {
        Week house;
        house.add(QStringLiteral("Tea"));
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        const QSignalSpy changes(&house.week, &InsightsModel::weekChanged);
        house.platform.clock.advance(14);
        QCOMPARE(changes.count(), 0);
        house.platform.clock.advance(1);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(house.each("minutes").last(), QVariant(0.25));
        house.platform.clock.advance(45);
        QCOMPARE(changes.count(), 4);
        QCOMPARE(house.each("value").last(), QVariant("1"));
    }

    void typingANoteIsNoReasonToCount() {
        Week house(ordinaryWeek());
        const QSignalSpy changes(&house.week, &InsightsModel::weekChanged);
        house.model->updateNote(QStringLiteral("A thought"));
        QCOMPARE(changes.count(), 0);
    }

    void whileNobodyLooksItRestsAndCatchesUpAfterwards() {
        Week house(ordinaryWeek());
        house.week.setActive(false);
        const QSignalSpy changes(&house.week, &InsightsModel::weekChanged);
        house.model->toggle(house.task(1));
        house.model->toggle(house.task(2));
        QCOMPARE(changes.count(), 0);
        house.week.setActive(true);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(house.week.tasksCompleted(), 0);
        house.week.setActive(false);
        house.week.setActive(true);
        QCOMPARE(changes.count(), 1);
    }

    void theChartsLinesStandAtRoundMinutes_data() {
        QTest::addColumn<double>("longest");
        QTest::addColumn<double>("step");
        const std::pair<double, double> rows[] = {
            {0, 25},    {0.2, 1},    {4, 1},      {4.1, 2},     {8, 2},       {9, 5},           {20, 5},
            {31, 10},   {75, 20},    {90, 25},    {100, 25},    {100.5, 50},  {200, 50},        {400, 100},
            {720, 200}, {1000, 250}, {1440, 500}, {2880, 1000}, {9001, 2500}, {100'000, 25'000}};
        for (const auto& [longest, step] : rows) QTest::addRow("%g", longest) << longest << step;
    }
    void theChartsLinesStandAtRoundMinutes() {
        QFETCH(double, longest);
        QTEST(chartStep(longest), "step");
    }
};

QTEST_GUILESS_MAIN(InsightsModelTests)
#include "InsightsModelTests.moc"
