#include "Doubles/PastPlanner.h"
#include "Model/HistoryModel.h"
#include "Orvane/ModelFixture.h"

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;

namespace {

/// The look back of an open planner. Now is Tuesday, 10 March 2026, 02:46 in Berlin.
class History : public ModelFixture {
public:
    explicit History(const planner::PlannerSnapshot& past = {}) {
        store(past);
        load();
        history.setModel(model.get());
        history.setActive(true);
    }

    /// The rows as one would read them.
    QStringList rows() const {
        QStringList texts;
        for (int row = 0; row < history.rowCount(); ++row) {
            const auto at = [&](HistoryModel::Role role) { return history.data(history.index(row), role); };
            auto text = at(HistoryModel::titleRole).toString();
            if (at(HistoryModel::kindRole).toInt() == HistoryModel::Session)
                text += QStringLiteral(" %1 min %2")
                            .arg(at(HistoryModel::minutesRole).toInt())
                            .arg(at(HistoryModel::statusRole).toString());
            texts.append(text);
        }
        return texts;
    }

    HistoryModel history;
    QAbstractItemModelTester tester{&history, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

const QString tasksHeading = QStringLiteral("COMPLETED TASKS");
const QString noTasks = QStringLiteral("No completed tasks for this day.");
const QString sessionsHeading = QStringLiteral("FOCUS SESSIONS");
const QString noSessions = QStringLiteral("No focus sessions for this day.");

planner::PlannerSnapshot ordinaryYesterday() {
    const FakeClock clock;
    PastPlanner past(clock);
    past.complete(1, 18, "In the evening");
    past.complete(1, 9, "In the morning");
    past.complete(0, 0, "Today");
    past.focus(1, 9, "Read", 25.9);
    past.focus(1, 23.5, "Write", 61, FocusStatus::paused);
    past.note(1, "Call the printer");
    return past.snapshot;
}

const QStringList yesterdaysRows{
    tasksHeading,    QStringLiteral("In the morning"),       QStringLiteral("In the evening"),
    sessionsHeading, QStringLiteral("Read 25 min finished"), QStringLiteral("Write 30 min paused")};
const QString yesterday = QStringLiteral("2026-03-09");

} // namespace

class HistoryModelTests : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void itBeginsWithTodayAndSaysThatADayIsEmpty() {
        const History house;
        QCOMPARE(house.history.day(), "2026-03-10");
        QCOMPARE(house.history.today(), "2026-03-10");
        QCOMPARE(house.history.dayText(), "Tuesday, 10 March 2026");
        QCOMPARE(house.rows(), QStringList({tasksHeading, noTasks, sessionsHeading, noSessions}));
        QCOMPARE(house.history.note(), "");
        QVERIFY(house.history.blank());
    }

    void aDayHoldsItsTasksInTheirOrderItsSessionsAndItsNote() {
        History house(ordinaryYesterday());
        house.history.setDay(yesterday);
        QCOMPARE(house.rows(), yesterdaysRows);
        QCOMPARE(house.history.note(), "Call the printer");
        QVERIFY(!house.history.blank());
    }

    void aSessionAcrossMidnightIsShownOnBothDaysWithEachDaysMinutes() {
        const History house(ordinaryYesterday());
        QCOMPARE(house.rows(), QStringList({tasksHeading, QStringLiteral("Today"), sessionsHeading,
                                            QStringLiteral("Write 31 min paused")}));
    }

    void eachOfTasksSessionsAndNoteAloneMakesADayOneThatIsNotBlank() {
        const FakeClock clock;
        PastPlanner past(clock);
        past.complete(1, 12, "Task");
        past.focus(2, 12, "Task", 0);
        past.note(3, "Note");
        past.note(4, " \n ");
        History house(past.snapshot);
        for (int daysAgo = 1; daysAgo <= 3; ++daysAgo) {
            house.history.setDay(QString::fromStdString(past.day(daysAgo)));
            QVERIFY(!house.history.blank());
        }
        house.history.setDay(QString::fromStdString(past.day(4)));
        QVERIFY(house.history.blank());
        QCOMPARE(house.history.note(), "");
    }

    void reopeningATaskRemovesItsRowAlone() {
        History house(ordinaryYesterday());
        house.history.setDay(yesterday);
        const QSignalSpy removed(&house.history, &HistoryModel::rowsRemoved);
        const QSignalSpy inserted(&house.history, &HistoryModel::rowsInserted);
        house.model->toggle(house.task(1));
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed[0][1].toInt(), 1);
        QCOMPARE(removed[0][2].toInt(), 1);
        QCOMPARE(inserted.count(), 0);
        house.model->toggle(house.task(0));
        QCOMPARE(house.rows().mid(0, 2), QStringList({tasksHeading, noTasks}));
        QCOMPARE(house.model->openTasks()->count(), 2);
    }

    void anotherTitleChangesItsRowAlone() {
        History house(ordinaryYesterday());
        house.history.setDay(yesterday);
        const QSignalSpy removed(&house.history, &HistoryModel::rowsRemoved);
        const QSignalSpy changed(&house.history, &HistoryModel::dataChanged);
        house.model->rename(house.task(1), QStringLiteral("At nine"));
        QCOMPARE(removed.count(), 0);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(house.rows()[1], "At nine");
    }

    void aRunningSessionGrowsWithItsCheckpoints() {
        History house;
        house.add(QStringLiteral("Tea"));
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        QCOMPARE(house.rows().last(), "Tea 0 min running");
        QVERIFY(!house.history.blank());
        const QSignalSpy changed(&house.history, &HistoryModel::dataChanged);
        house.platform.clock.advance(59);
        QCOMPARE(changed.count(), 0);
        house.platform.clock.advance(1);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(house.rows().last(), "Tea 1 min running");
        house.model->focus()->pause();
        QCOMPARE(house.rows().last(), "Tea 1 min paused");
    }

    void todaysNoteIsShownAsItIsTyped() {
        History house;
        house.model->updateNote(QStringLiteral("A thought"));
        QCOMPARE(house.history.note(), "A thought");
        QVERIFY(!house.history.blank());
        house.model->updateNote(QString());
        QVERIFY(house.history.blank());
    }

    void midnightLeavesTheDayShownAndMovesToday() {
        History house(ordinaryYesterday());
        const QSignalSpy today(&house.history, &HistoryModel::todayChanged);
        const auto before = house.rows();
        house.platform.clock.advance(22 * 3600);
        house.model->followToday();
        QCOMPARE(house.history.today(), "2026-03-11");
        QCOMPARE(today.count(), 1);
        QCOMPARE(house.history.day(), "2026-03-10");
        QCOMPARE(house.rows(), before);
    }

    void anotherTimeZoneMovesTheDaysBorders() {
        History house(ordinaryYesterday());
        house.history.setDay(yesterday);
        house.platform.clock.setCalendar(planner::Calendar("America/New_York", 0));
        house.model->followToday();
        QCOMPARE(house.history.today(), yesterday);
        QCOMPARE(house.history.firstWeekday(), 0);
        QCOMPARE(house.rows().last(), "Write 61 min paused");
        QVERIFY(house.rows().contains(QStringLiteral("Today")));
    }

    void aDateThatTheZoneSkippedHoldsNothing() {
        const FakeClock clock;
        PastPlanner past(clock);
        planner::PlannerTask task(planner::Uuid::random(), "Task", {0}, 0);
        // 2011-12-30 10:00 UTC, where Apia went from the 29th to the 31st.
        task.completedAt = planner::Instant{346'932'000};
        past.snapshot.tasks.push_back(task);
        History house(past.snapshot);
        house.platform.clock.setCalendar(planner::Calendar("Pacific/Apia"));
        house.model->followToday();
        house.history.setDay(QStringLiteral("2011-12-30"));
        QVERIFY(house.history.blank());
        house.history.setDay(QStringLiteral("2011-12-31"));
        QCOMPARE(house.rows()[1], "Task");
    }

    void aTextThatNamesNoDayIsRefused() {
        History house;
        for (const auto* text : {"", "yesterday", "2026-02-30", "2026-13-01"}) {
            house.history.setDay(QString::fromLatin1(text));
            QCOMPARE(house.history.day(), "2026-03-10");
        }
    }

    void whileNobodyLooksItRestsAndCatchesUpAfterwards() {
        History house(ordinaryYesterday());
        house.history.setDay(yesterday);
        house.history.setActive(false);
        house.model->toggle(house.task(0));
        house.model->toggle(house.task(1));
        QCOMPARE(house.rows(), yesterdaysRows);
        house.history.setActive(true);
        QCOMPARE(house.rows()[1], noTasks);
    }

    void aLongTextIsCutIntoPartsOfWholeLines() {
        QCOMPARE(partsOf({}), QStringList());
        QCOMPARE(partsOf(QStringLiteral("a\n\nb\n")), QStringList(QStringLiteral("a\n\nb\n")));
        QStringList lines;
        for (int line = 0; line < 5000; ++line)
            lines.append(QStringLiteral("Line %1 of a note").arg(line) + QString(line % 3, u'\n'));
        const auto text = lines.join(u'\n');
        const auto parts = partsOf(text);
        QCOMPARE(parts.join(u'\n'), text);
        QVERIFY(parts.size() <= text.size() / 1900 + 1);
        for (const auto& part : parts) QVERIFY(part.size() <= 2000);
    }

    void aLongLineIsCutAtSpacesAndNeverWithinACharacter() {
        const auto words = QStringLiteral("word ").repeated(3000);
        QCOMPARE(partsOf(words).join(u' '), words);
        // Two units each, the first one at an odd place.
        const auto faces = QStringLiteral("x") + QString::fromUtf8("😀").repeated(5000);
        const auto parts = partsOf(faces);
        QCOMPARE(parts.join(QString()), faces);
        for (const auto& part : parts) {
            QVERIFY(part.size() <= 2000);
            QVERIFY(!part.front().isLowSurrogate());
        }
    }

    void theKeyboardStopsAtTasksAndSessionsOnly() {
        History house(ordinaryYesterday());
        house.history.setDay(yesterday);
        QCOMPARE(house.history.stopNear(0, 1), 1);
        QCOMPARE(house.history.stopNear(3, 1), 4);
        QCOMPARE(house.history.stopNear(3, -1), 2);
        QCOMPARE(house.history.stopNear(0, -1), 1);
        QCOMPARE(house.history.stopNear(99, 1), 5);
        house.history.setDay(QStringLiteral("2026-01-01"));
        QCOMPARE(house.history.stopNear(0, 1), -1);
    }
};

QTEST_GUILESS_MAIN(HistoryModelTests)
#include "HistoryModelTests.moc"
