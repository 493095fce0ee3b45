#include "Orvane/ModelFixture.h"
#include "StoredRows.h"

#include <QSignalSpy>
#include <QTest>

#include <cerrno>

using namespace orvane;
using namespace orvane::test;
using planner::FocusStatus;
using planner::PlannerSnapshot;

namespace {

const QString couldNotOpen =
    QStringLiteral("Your planner could not be opened. Your existing data has been preserved. ");

} // namespace

class AppModelLoadingTests : public QObject {
    Q_OBJECT

private slots:
    void aNewModelIsOpeningAndNothingHasFailed() {
        ModelFixture house;
        QCOMPARE(house.model->ready(), false);
        QCOMPARE(house.model->saveState(), QStringLiteral("Opening your planner…"));
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(house.model->storageFailed(), false);
        QCOMPARE(house.platform.dataFolder.opened, 0);
    }

    void aFirstLaunchOpensAnEmptyPlanner() {
        ModelFixture house;
        house.load();
        QCOMPARE(house.model->ready(), true);
        QVERIFY(house.model->snapshot() == PlannerSnapshot());
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
        QCOMPARE(house.model->revision(), 0);
        QVERIFY(std::filesystem::exists(house.folder() / "Planner.sqlite"));
    }

    void nothingIsReadyBeforeTheStoreHasAnswered() {
        ModelFixture house;
        house.model->load();
        house.platform.storeExecutor.work();
        QCOMPARE(house.model->ready(), false);
        QCOMPARE(house.model->saveState(), QStringLiteral("Opening your planner…"));
        house.platform.storeExecutor.tell();
        QCOMPARE(house.model->ready(), true);
    }

    void theStoredPlannerIsShown() {
        ModelFixture house;
        PlannerSnapshot planner;
        planner.tasks = {plainTask(2), plainTask(1)};
        house.store(planner);
        QSignalSpy becameReady(house.model.get(), &AppModel::readyChanged);
        house.load();
        QCOMPARE(house.titles(), (std::vector<std::string>{"Task 1", "Task 2"}));
        QCOMPARE(house.model->openTasks()->count(), 2);
        QCOMPARE(becameReady.size(), 1);
    }

    void onlyTheFirstOfTwoUnfinishedSessionsWouldBeResumedAndTwoCannotBeStored() {
        ModelFixture house;
        const auto task = plainTask(1);
        PlannerSnapshot planner;
        planner.sessions = {session(task, FocusStatus::running), session(task, FocusStatus::paused)};
        house.store(planner);
        house.load();
        QCOMPARE(house.model->ready(), false);
        QVERIFY(!house.model->focus()->engine());
    }

    void anInterruptedSessionIsResumedPausedAndStoredSo() {
        ModelFixture house;
        const auto task = plainTask(1);
        PlannerSnapshot planner;
        planner.sessions = {session(task, FocusStatus::finished), session(task, FocusStatus::running)};
        house.store(planner);
        house.load();
        QCOMPARE(house.model->focus()->recovered(), true);
        QCOMPARE(house.model->focus()->engine()->session.id, planner.sessions[1].id);
        QCOMPARE(house.model->revision(), 1);
        QCOMPARE(house.stored().sessions.size(), std::size_t(2));
        QCOMPARE(house.stored().sessions[1].status, FocusStatus::paused);
    }

    void aPausedSessionIsResumedAndNeedsNoSave() {
        ModelFixture house;
        PlannerSnapshot planner;
        planner.sessions = {session(plainTask(1), FocusStatus::paused)};
        house.store(planner);
        house.load();
        QVERIFY(house.model->focus()->engine());
        QCOMPARE(house.model->focus()->recovered(), false);
        QCOMPARE(house.model->revision(), 0);
    }

    void finishedSessionsLeaveTheTimerIdle() {
        ModelFixture house;
        PlannerSnapshot planner;
        planner.sessions = {session(plainTask(1), FocusStatus::finished)};
        house.store(planner);
        house.load();
        QVERIFY(house.model->ready());
        QVERIFY(!house.model->focus()->engine());
    }

    void aFailedLoadSaysSoAndChangesNothing() {
        ModelFixture house;
        std::filesystem::create_directories(house.folder());
        writeFile(house.folder() / "Planner.sqlite",
                  "This is no planner, and it is long enough to be looked at.");
        const auto before = filesIn(house.folder());
        QSignalSpy failed(house.model.get(), &AppModel::storageFailedChanged);
        house.load();
        QCOMPARE(house.model->storageFailed(), true);
        QCOMPARE(failed.size(), 1);
        QVERIFY(house.model->error()->startsWith(couldNotOpen));
        QVERIFY(house.model->error()->size() > couldNotOpen.size());
        QCOMPARE(house.model->saveState(), QStringLiteral("Opening your planner…"));
        QCOMPARE(house.model->addTask(QStringLiteral("Tea")), std::nullopt);
        QVERIFY(house.model->snapshot().tasks.empty());
        const auto description = house.model->error()->mid(couldNotOpen.size()).toStdString();
        QCOMPARE(house.platform.log.lines(), std::vector{"Persistence: Store open failed: " + description});
        QVERIFY(filesIn(house.folder()) == before);
    }

    void aFolderThatCannotBeOpenedFailsWithTheSystemsWords() {
        ModelFixture house;
        house.platform.dataFolder.failure = std::error_code(EACCES, std::generic_category());
        house.load();
        QCOMPARE(house.model->error(), couldNotOpen + QStringLiteral("Permission denied"));
        QCOMPARE(house.platform.storeExecutor.handedOver(), std::size_t(0));
    }

    void aPlannerThatBreaksARuleFailsWithItsSentence() {
        ModelFixture house;
        house.store({});
        executeSql(house.folder() / "Planner.sqlite",
                   "INSERT INTO PlannerRecord VALUES ('reminder-1', 'reminder', X'7B7D')");
        house.load();
        QCOMPARE(house.model->error(),
                 couldNotOpen + QStringLiteral("This planner was created by an incompatible app version."));
    }

    void aRetryThatSucceedsKeepsTheOldError() {
        ModelFixture house;
        house.platform.dataFolder.failure = std::error_code(EACCES, std::generic_category());
        house.load();
        const auto error = house.model->error();
        QSignalSpy failed(house.model.get(), &AppModel::storageFailedChanged);
        house.platform.dataFolder.failure.reset();
        house.load();
        QCOMPARE(house.model->ready(), true);
        QCOMPARE(house.model->storageFailed(), false);
        QCOMPARE(failed.size(), 1);
        QCOMPARE(house.model->error(), error);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
    }

    void aFaultThatIsMendedLetsTheRetrySucceed() {
        ModelFixture house;
        house.disk.failEverything(SQLITE_IOERR);
        house.load();
        QCOMPARE(house.model->storageFailed(), true);
        house.disk.heal();
        house.load();
        QCOMPARE(house.model->ready(), true);
        QVERIFY(house.model->addTask(QStringLiteral("Tea")));
    }

    void loadingTwiceAtOnceOpensTheStoreOnce() {
        ModelFixture house;
        int over = 0;
        house.model->load([&] { ++over; });
        house.model->load([&] { ++over; });
        QCOMPARE(house.platform.storeExecutor.handedOver(), std::size_t(1));
        QCOMPARE(over, 0);
        house.platform.settle();
        QCOMPARE(over, 2);
    }

    void loadingAgainWhenReadyKeepsWhatIsShown() {
        ModelFixture house;
        house.load();
        house.add(QStringLiteral("Tea"));
        int over = 0;
        house.model->load([&] { ++over; });
        QCOMPARE(over, 1);
        QCOMPARE(house.platform.dataFolder.opened, 1);
        QCOMPARE(house.titles(), std::vector<std::string>{"Tea"});
    }

    void aFailedLoadIsOverToo() {
        ModelFixture house;
        house.platform.dataFolder.failure = std::error_code(EACCES, std::generic_category());
        int over = 0;
        house.model->load([&] { ++over; });
        QCOMPARE(over, 1);
        QCOMPARE(house.model->ready(), false);
    }

    void aModelThatGoesWhileItsStoreOpensIsNotToldOfIt() {
        ModelFixture house;
        int over = 0;
        house.model->load([&] { ++over; });
        house.platform.storeExecutor.work();
        house.renew();
        house.platform.settle();
        QCOMPARE(over, 0);
        QCOMPARE(house.model->ready(), false);
    }

    void loadingSchedulesTheStoredRemindersAndTheFirstSaveLooksOnceMore() {
        ModelFixture house;
        auto task = plainTask(1);
        task.reminderAt = house.platform.clock.now() + 600;
        PlannerSnapshot planner;
        planner.tasks = {task};
        house.store(planner);
        house.load();
        const auto identifier = QStringLiteral("task-") + QString::fromStdString(task.id.text());
        QCOMPARE(house.platform.notifications.pendingIdentifiers(), QStringList{identifier});
        const auto asked = house.platform.notifications.calls.count(QStringLiteral("pendingRequests"));
        QCOMPARE(asked, 1);
        house.model->persist();
        house.platform.settle();
        QCOMPARE(house.platform.notifications.calls.count(QStringLiteral("pendingRequests")), 2);
    }

    void aFocusRequestIsCounted() {
        ModelFixture house;
        QSignalSpy requested(house.model.get(), &AppModel::focusRequestChanged);
        house.model->requestFocus();
        house.model->requestFocus();
        QCOMPARE(house.model->focusRequest(), 2);
        QCOMPARE(requested.size(), 2);
    }

    void aPanelCommandThatNobodySetDoesNothing() {
        ModelFixture house;
        house.model->requestDashboard();
        house.model->requestDismissal();
        int opened = 0, dismissed = 0;
        house.model->openDashboard = [&] { ++opened; };
        house.model->dismissPanel = [&] { ++dismissed; };
        house.model->requestDashboard();
        house.model->requestDismissal();
        QCOMPARE(opened, 1);
        QCOMPARE(dismissed, 1);
    }
};

QTEST_GUILESS_MAIN(AppModelLoadingTests)
#include "AppModelLoadingTests.moc"
