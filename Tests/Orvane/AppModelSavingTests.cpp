#include "Orvane/ModelFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;
using planner::PlannerSnapshot;
using Titles = std::vector<std::string>;

namespace {

const QString saved = QStringLiteral("Saved on this Mac");
const QString saving = QStringLiteral("Saving…");
const QString notSaved = QStringLiteral("Not saved");
const QString stillInMemory =
    QStringLiteral("Your changes are still in memory. Retry saving or export a backup. ");

/// A ready, empty model.
class Planner : public ModelFixture {
public:
    Planner() { load(); }

    /// The answer of a flush that has come to rest; nothing when there was none.
    std::optional<bool> flushed() {
        std::optional<bool> answer;
        model->flush([&](bool everything) { answer = everything; });
        platform.settle();
        return answer;
    }
    Titles storedTitles() const { return titles(stored()); }
};

} // namespace

class AppModelSavingTests : public QObject {
    Q_OBJECT

private slots:
    void threeQuickEditsAreSavedOneAfterAnother() {
        Planner house;
        auto& worker = house.platform.storeExecutor;
        const auto before = worker.handedOver();
        for (const auto* title : {"A", "B", "C"}) house.add(QString::fromLatin1(title));
        QCOMPARE(house.model->revision(), 3);
        QCOMPARE(worker.handedOver() - before, std::size_t(1));
        for (int done = 1; done <= 3; ++done) {
            QCOMPARE(house.model->saveState(), saving);
            QCOMPARE(worker.waiting(), std::size_t(1));
            QVERIFY(worker.runOne());
            QCOMPARE(house.model->lastSavedRevision(), done);
            QCOMPARE(house.storedTitles().size(), std::size_t(done));
        }
        QCOMPARE(house.model->saveState(), saved);
        QVERIFY(!worker.runOne());
    }

    void aSaveInTheAirWritesWhatWasThereWhenItBegan() {
        Planner house;
        house.add(QStringLiteral("A"));
        house.model->rename(house.task(0), QStringLiteral("B"));
        house.platform.storeExecutor.work();
        QCOMPARE(house.storedTitles(), Titles{"A"});
        QCOMPARE(house.titles(), Titles{"B"});
    }

    void nothingIsSavedUntilTheStoreHasAnswered() {
        Planner house;
        house.add(QStringLiteral("A"));
        house.platform.storeExecutor.work();
        QCOMPARE(house.model->saveState(), saving);
        QCOMPARE(house.model->lastSavedRevision(), 0);
        house.platform.storeExecutor.tell();
        QCOMPARE(house.model->saveState(), saved);
    }

    void aCommandBeforeThePlannerIsOpenSavesNothing() {
        ModelFixture house;
        QCOMPARE(house.model->addTask(QStringLiteral("A")), std::nullopt);
        house.model->toggle(plainTask(1));
        house.model->deleteTask(plainTask(1));
        house.model->undoDelete();
        house.model->persist();
        QCOMPARE(house.model->revision(), 0);
        QCOMPARE(house.platform.storeExecutor.handedOver(), std::size_t(0));
        QCOMPARE(house.model->saveState(), QStringLiteral("Opening your planner…"));
    }

    void aFailingStoreSaysSoKeepsTheEditAndTheRetrySavesIt() {
        Planner house;
        house.disk.failWrites(SQLITE_FULL);
        house.add(QStringLiteral("A"));
        house.platform.settle();
        QCOMPARE(house.model->saveState(), notSaved);
        QVERIFY(house.model->error()->startsWith(stillInMemory));
        const auto description = house.model->error()->mid(stillInMemory.size()).toStdString();
        QVERIFY(!description.empty());
        QCOMPARE(house.platform.log.lines(), std::vector{"Persistence: Save failed: " + description});
        QCOMPARE(house.model->lastSavedRevision(), 0);
        QCOMPARE(house.titles(), Titles{"A"});
        QCOMPARE(house.flushed(), std::optional(false));
        house.disk.heal();
        QVERIFY(house.storedTitles().empty());
        house.model->persist();
        QCOMPARE(house.model->saveState(), saving);
        house.platform.settle();
        QCOMPARE(house.model->saveState(), saved);
        QCOMPARE(house.storedTitles(), Titles{"A"});
        QVERIFY(house.model->error().has_value());
        QCOMPARE(house.model->lastSavedRevision(), house.model->revision());
    }

    void theSaveAfterAFailedOneBringsItsEditsToo() {
        Planner house;
        auto& worker = house.platform.storeExecutor;
        house.add(QStringLiteral("A"));
        house.add(QStringLiteral("B"));
        house.disk.failWrites(SQLITE_IOERR);
        worker.runOne();
        QCOMPARE(house.model->saveState(), notSaved);
        house.disk.heal();
        worker.runOne();
        QCOMPARE(house.model->saveState(), saved);
        QCOMPARE(house.model->lastSavedRevision(), 2);
        QCOMPARE(house.storedTitles(), (Titles{"A", "B"}));
    }

    void aFailureAfterASuccessLeavesTheLastSavedRevision() {
        Planner house;
        house.add(QStringLiteral("A"));
        house.add(QStringLiteral("B"));
        house.platform.storeExecutor.runOne();
        house.disk.failWrites(SQLITE_FULL);
        house.platform.storeExecutor.runOne();
        QCOMPARE(house.model->lastSavedRevision(), 1);
        QCOMPARE(house.model->saveState(), notSaved);
        house.disk.heal();
        QCOMPARE(house.storedTitles(), Titles{"A"});
    }

    void aFailedSavePausesTheRunningTimerAndTriesOnceMore() {
        Planner house;
        house.add(QStringLiteral("A"));
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.platform.settle();
        house.disk.failWrites(SQLITE_FULL);
        house.add(QStringLiteral("B"));
        const auto revision = house.model->revision();
        house.platform.settle();
        QCOMPARE(house.model->focus()->engine()->session.status, FocusStatus::paused);
        QCOMPARE(house.model->revision(), revision + 1);
        QCOMPARE(house.model->saveState(), notSaved);
        house.disk.heal();
        QCOMPARE(house.flushed(), std::optional(true));
        QCOMPARE(house.stored().sessions[0].status, FocusStatus::paused);
    }

    void equalTasksAreNotHandedToTheRemindersAgain() {
        Planner house;
        auto& calls = house.platform.notifications.calls;
        house.add(QStringLiteral("A"));
        house.platform.settle();
        calls.clear();
        house.model->persist();
        house.platform.settle();
        QCOMPARE(calls, QStringList());
        house.model->rename(house.task(0), QStringLiteral("B"));
        house.platform.settle();
        QCOMPARE(calls, (QStringList{"authorization", "pendingRequests"}));
    }

    void theRemindersGetWhatIsOnDiskAndNothingElse() {
        Planner house;
        auto task = plainTask(1);
        task.reminderAt = house.platform.clock.now() + 60;
        PlannerSnapshot planner;
        planner.tasks = {task};
        house.store(planner);
        house.renew();
        house.load();
        QCOMPARE(house.platform.notifications.pending.size(), 1);
        house.disk.failWrites(SQLITE_FULL);
        house.model->deleteTask(task);
        house.platform.settle();
        QCOMPARE(house.platform.notifications.pending.size(), 1);
        house.disk.heal();
        house.model->persist();
        house.platform.settle();
        QCOMPARE(house.platform.notifications.pending.size(), 0);
    }

    void aFlushAnswersWhenItsSaveHasSettled() {
        Planner house;
        house.add(QStringLiteral("A"));
        std::optional<bool> answer;
        house.model->flush([&](bool everything) { answer = everything; });
        QVERIFY(!answer);
        house.platform.storeExecutor.runOne();
        QVERIFY(!answer);
        house.platform.storeExecutor.runOne();
        QCOMPARE(answer, std::optional(true));
        QCOMPARE(house.storedTitles(), Titles{"A"});
    }

    void aFlushBeforeThePlannerIsOpenAnswersAtOnce() {
        ModelFixture house;
        std::optional<bool> answer;
        house.model->flush([&](bool everything) { answer = everything; });
        QCOMPARE(answer, std::optional(true));
    }

    void anEditMadeDuringAFlushMakesItsAnswerNo() {
        Planner house;
        house.add(QStringLiteral("A"));
        std::optional<bool> answer;
        house.model->flush([&](bool everything) { answer = everything; });
        house.add(QStringLiteral("B"));
        house.platform.storeExecutor.runOne();
        house.platform.storeExecutor.runOne();
        QCOMPARE(answer, std::optional(false));
        house.platform.settle();
        QCOMPARE(house.storedTitles(), (Titles{"A", "B"}));
    }

    void savesInTheAirReachTheStoreAlsoWhenTheModelIsGone() {
        Planner house;
        for (const auto* title : {"A", "B", "C"}) house.add(QString::fromLatin1(title));
        house.platform.storeExecutor.work();
        house.model.reset();
        house.platform.storeExecutor.runAll();
        QCOMPARE(house.storedTitles(), (Titles{"A", "B", "C"}));
        QCOMPARE(house.platform.log.lines(), std::vector<std::string>());
    }

    void nobodyIsToldOfAFlushWhoseModelIsGone() {
        Planner house;
        house.add(QStringLiteral("A"));
        bool answered = false;
        house.model->flush([&](bool) { answered = true; });
        house.model.reset();
        house.platform.settle();
        QVERIFY(!answered);
        QCOMPARE(house.storedTitles(), Titles{"A"});
    }

    void aFailureThatNobodyIsLeftToHearIsDropped() {
        Planner house;
        house.add(QStringLiteral("A"));
        house.disk.failWrites(SQLITE_FULL);
        house.model.reset();
        house.platform.settle();
        QCOMPARE(house.platform.log.lines(), std::vector<std::string>());
    }

    void theSaveStateIsAnnouncedOnceForEachChange() {
        Planner house;
        QSignalSpy announced(house.model.get(), &AppModel::saveStateChanged);
        house.add(QStringLiteral("A"));
        house.add(QStringLiteral("B"));
        QCOMPARE(announced.size(), 1);
        house.platform.settle();
        QCOMPARE(announced.size(), 2);
    }
};

QTEST_GUILESS_MAIN(AppModelSavingTests)
#include "AppModelSavingTests.moc"
