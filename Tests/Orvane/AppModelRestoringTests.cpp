#include "App/AppDelegate.h"
#include "Orvane/BackupHouse.h"
#include "Orvane/WindowFixture.h"

#include <PlannerCore/BackupFile.h>

#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;
using planner::PlannerSnapshot;
using Titles = std::vector<std::string>;

namespace {

const QString done = QStringLiteral("Backup restored. Previous data was backed up locally.");

/// How far a restore that was agreed to has come.
enum Stage { saving, replacing, replaced };
constexpr auto stages = {saving, replacing, replaced};

/// A restore of the other planner, held at a stage.
class Restoring : public BackupHouse {
public:
    explicit Restoring(Stage stage) {
        choose(written(other()));
        hold(stage);
    }
    void hold(Stage stage) {
        agree();
        auto& worker = platform.storeExecutor;
        if (stage > saving) worker.runOne();
        if (stage > replacing) worker.work();
    }
    /// Whether it ended with the other planner in memory and on disk.
    bool ended() {
        platform.settle();
        return !model->restoring() && model->notice() == done && !model->error() &&
               model->snapshot() == other() && stored() == other();
    }
};

} // namespace

class AppModelRestoringTests : public QObject {
    Q_OBJECT

private slots:
    void theRestoreIsAnnouncedFromTheAgreementToItsEnd() {
        BackupHouse house;
        QSignalSpy announced(house.model.get(), &AppModel::restoringChanged);
        QSignalSpy noteReplaced(house.model.get(), &AppModel::noteReplaced);
        house.choose(house.written(BackupHouse::other()));
        QCOMPARE(announced.size(), 0);
        house.agree();
        QVERIFY(house.model->restoring());
        house.platform.storeExecutor.runOne();
        house.platform.storeExecutor.work();
        QVERIFY(house.model->restoring());
        QCOMPARE(house.restored, 0);
        QCOMPARE(noteReplaced.size(), 0);
        house.platform.settle();
        QVERIFY(!house.model->restoring());
        QCOMPARE(announced.size(), 2);
        QCOMPARE(noteReplaced.size(), 1);
        QCOMPARE(house.restored, 1);
    }

    void editsMeanwhileAreRefused() {
        for (const auto stage : stages) {
            Restoring house(stage);
            const auto task = house.task(0);
            QCOMPARE(house.model->addTask(QStringLiteral("New")), std::nullopt);
            house.model->rename(task, QStringLiteral("Other"));
            house.model->toggle(task);
            house.model->deleteTask(task);
            house.model->undoDelete();
            house.model->moveTask(task, 1);
            house.model->moveTask(task.id, planner::Uuid());
            house.model->beginFocus(task, FocusMode::stopwatch, 25);
            house.model->updateNote(QStringLiteral("A key"));
            QVERIFY(house.model->snapshot() == BackupHouse::planner());
            QVERIFY(house.model->focus()->statusText().isEmpty());
            QVERIFY(house.ended());
            house.platform.clock.advance(1);
            QVERIFY(house.ended());
        }
    }

    void theOldPlannerIsNeverWrittenOverTheRestoredOne() {
        for (const auto stage : stages) {
            Restoring house(stage);
            const auto revision = house.model->revision();
            // The machine goes to sleep, the day ends, somebody presses "Retry save".
            house.model->focus()->pause();
            house.model->persist();
            house.model->selectNoteDayBy(1);
            QCOMPARE(house.model->revision(), revision);
            QVERIFY(house.ended());
            QCOMPARE(house.model->revision(), revision + 1);
            QCOMPARE(house.model->lastSavedRevision(), revision + 1);
        }
    }

    void whatWaitedIsSavedAlsoAfterAFailedRestore() {
        Restoring house(replacing);
        const auto revision = house.model->revision();
        house.model->persist();
        house.disk.failWrites(SQLITE_FULL);
        house.platform.storeExecutor.runOne();
        house.disk.heal();
        house.platform.settle();
        QVERIFY(house.model->error().has_value());
        QCOMPARE(house.model->lastSavedRevision(), revision + 1);
        QVERIFY(house.stored() == BackupHouse::planner());
    }

    void aFlushMeanwhileAnswersAfterTheEnd() {
        for (const auto stage : stages) {
            Restoring house(stage);
            std::vector<bool> answers;
            house.model->flush([&](bool everything) { answers.push_back(everything); });
            house.model->flush([&](bool everything) { answers.push_back(everything); });
            while (house.model->restoring()) {
                QVERIFY(answers.empty());
                QVERIFY(house.platform.storeExecutor.runOne());
            }
            QVERIFY(house.ended());
            QCOMPARE(answers, (std::vector{true, true}));
        }
    }

    void aQuitMeanwhileWaitsForTheEnd() {
        for (const auto stage : stages) {
            WindowFixture desk;
            auto& house = desk.model;
            int ended = 0;
            AppDelegate delegate(house.platform.platform, *house.model, *desk.coordinator,
                                 [&ended] { ++ended; });
            house.add(QStringLiteral("Old"));
            house.platform.settle();
            const auto path = house.folder().parent_path() / "Backup.json";
            writeFile(path, BackupHouse::other().backupData());
            house.model->importBackup();
            house.platform.filePanels.choose(path);
            house.platform.settle();
            house.platform.alerts.choose(0);
            if (stage > saving) house.platform.storeExecutor.runOne();
            if (stage > replacing) house.platform.storeExecutor.work();
            delegate.quit();
            QCOMPARE(ended, 0);
            house.platform.settle();
            QCOMPARE(ended, 1);
            QVERIFY(house.stored() == BackupHouse::other());
        }
    }

    void thePanelStaysAwayUntilTheEnd() {
        WindowFixture desk;
        auto& house = desk.model;
        const auto path = house.folder().parent_path() / "Backup.json";
        writeFile(path, BackupHouse::other().backupData());
        house.model->importBackup();
        QVERIFY(!desk.panel.shownAt);
        house.platform.filePanels.choose(path);
        house.platform.settle();
        desk.coordinator->expand(true);
        QVERIFY(!desk.panel.shownAt);
        house.platform.alerts.choose(0);
        house.platform.storeExecutor.runOne();
        desk.coordinator->expand(true);
        QVERIFY(!desk.state.expanded());
        house.platform.settle();
        QVERIFY(desk.panel.shownAt);
    }

    void aRunningTimerIsPausedFirstAndKeptInTheSafetyCopy() {
        BackupHouse house;
        house.model->focus()->start(house.task(0), FocusMode::countdown, 25);
        house.platform.clock.advance(20);
        house.platform.settle();
        house.choose(house.written(BackupHouse::other()));
        QVERIFY(house.model->focus()->isRunning());
        house.agree();
        QVERIFY(!house.model->focus()->isRunning());
        house.platform.storeExecutor.runOne();
        QCOMPARE(house.stored().sessions[1].status, FocusStatus::paused);
        house.platform.settle();
        const auto kept = planner::readBackup(house.safetyCopy()).sessions[1];
        QCOMPARE(kept.status, FocusStatus::paused);
        double spent = 0;
        for (const auto& segment : kept.segments) spent += segment.duration;
        QCOMPARE(spent, 20.0);
        QVERIFY(!house.model->focus()->engine());
        house.platform.clock.advance(60);
        house.platform.settle();
        QVERIFY(house.stored() == BackupHouse::other());
    }

    void aTextStillBeingTypedIsKeptInTheSafetyCopy() {
        BackupHouse house;
        house.choose(house.written(BackupHouse::other()));
        house.model->updateNote(QStringLiteral("Half a wo"));
        house.agree();
        house.platform.settle();
        QCOMPARE(planner::readBackup(house.safetyCopy()).notes[1].text, std::string("Half a wo"));
        house.platform.clock.advance(1);
        house.platform.settle();
        QVERIFY(house.stored() == BackupHouse::other());
    }

    void savesStillInTheAirComeBeforeTheRestore() {
        BackupHouse house;
        house.choose(house.written(BackupHouse::other()));
        house.add(QStringLiteral("A"));
        house.add(QStringLiteral("B"));
        house.agree();
        house.platform.settle();
        QVERIFY(house.stored() == BackupHouse::other());
        QCOMPARE(BackupHouse::titles(planner::readBackup(house.safetyCopy())),
                 (Titles{"Task 1", "Task 2", "A", "B"}));
    }

    void aSessionThatRanInTheBackupIsRecoveredAndSavedPaused() {
        BackupHouse house;
        house.restore(house.written(BackupHouse::otherWith(FocusStatus::running)));
        QVERIFY(house.model->focus()->recovered());
        QCOMPARE(house.model->focus()->engine()->session.status, FocusStatus::paused);
        QCOMPARE(house.stored().sessions[0].status, FocusStatus::paused);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
    }

    void aSessionPausedInTheBackupIsShownAsItIs() {
        BackupHouse house;
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        const auto backup = BackupHouse::otherWith(FocusStatus::paused);
        house.restore(house.written(backup));
        QVERIFY(!house.model->focus()->recovered());
        QVERIFY(house.model->focus()->engine()->session == house.stored().sessions[0]);
        QCOMPARE(house.model->focus()->seconds(), 1800.0);
        QVERIFY(house.stored() == backup);
    }

    void aBackupWithoutAnOpenSessionClearsTheTimer() {
        BackupHouse house;
        house.model->focus()->start(house.task(0), FocusMode::countdown, 25);
        house.restore(house.written(BackupHouse::otherWith(FocusStatus::finished)));
        QVERIFY(!house.model->focus()->engine());
        QCOMPARE(house.model->focus()->seconds(), 0.0);
    }

    void aFailedRestoreLeavesTheTimerPaused() {
        BackupHouse house;
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.platform.clock.advance(20);
        house.platform.settle();
        house.choose(house.written(BackupHouse::other()));
        house.agree();
        house.platform.storeExecutor.runOne();
        house.disk.failWrites(SQLITE_FULL);
        house.platform.storeExecutor.runOne();
        house.disk.heal();
        house.platform.settle();
        QVERIFY(house.model->error().has_value());
        QCOMPARE(house.model->focus()->statusText(), QStringLiteral("paused"));
        house.model->focus()->resume();
        house.platform.clock.advance(10);
        house.model->focus()->finish();
        house.platform.settle();
        QCOMPARE(house.stored().sessions[1].status, FocusStatus::finished);
    }

    void aTimerThatIsStillAskingDoesNotStart() {
        BackupHouse house;
        house.model->beginFocus(house.task(0), FocusMode::countdown, 25);
        QVERIFY(house.model->startingFocus());
        house.model->importBackup();
        house.platform.filePanels.choose(house.written(BackupHouse::other()));
        house.platform.storeExecutor.runOne();
        house.agree();
        house.platform.notifications.answerAll();
        QVERIFY(!house.model->focus()->isRunning());
        QVERIFY(!house.model->startingFocus());
        house.platform.settle();
        QVERIFY(house.stored() == BackupHouse::other());
    }

    void whatWasRemovedBeforeCannotBeBroughtIntoTheRestoredPlanner() {
        BackupHouse house;
        house.model->deleteTask(house.task(0));
        QVERIFY(house.model->canUndoDelete());
        house.restore(house.written(BackupHouse::other()));
        QVERIFY(!house.model->canUndoDelete());
        house.model->undoDelete();
        house.platform.settle();
        QVERIFY(house.stored() == BackupHouse::other());
    }

    void theRemindersAreThoseOfTheRestoredPlanner() {
        BackupHouse house;
        const auto later = house.platform.clock.now() + 3600;
        auto mine = BackupHouse::planner();
        auto theirs = BackupHouse::other();
        for (auto* planner : {&mine, &theirs}) {
            auto task = planner->tasks[0];
            task.reminderAt = later;
            planner->tasks.replace(0, task);
        }
        house.store(mine);
        house.begin();
        const auto identifier = [](const PlannerSnapshot& planner) {
            return QString::fromStdString("task-" + planner.tasks[0].id.text());
        };
        QCOMPARE(house.platform.notifications.pendingIdentifiers(), QStringList{identifier(mine)});
        house.restore(house.written(theirs));
        QCOMPARE(house.platform.notifications.pendingIdentifiers(), QStringList{identifier(theirs)});
    }

    void whenTheModelGoesThePlannerIsTheOldOneOrTheNewOneWhole() {
        for (const auto stage : stages) {
            Restoring house(stage);
            house.model.reset();
            house.platform.settle();
            QVERIFY(house.stored() == (stage == saving ? BackupHouse::planner() : BackupHouse::other()));
            QCOMPARE(house.safetyCopy().empty(), stage == saving);
            QCOMPARE(house.restored, 0);
        }
    }

    void whenTheModelGoesBeforeTheQuestionNothingIsAskedOrReplaced() {
        BackupHouse house;
        house.model->importBackup();
        house.platform.filePanels.choose(house.written(BackupHouse::other()));
        house.model.reset();
        house.platform.settle();
        QVERIFY(house.platform.alerts.open.empty());
        QVERIFY(house.stored() == BackupHouse::planner());
    }

    void anAnswerAfterTheModelIsGoneReplacesNothing() {
        for (const int button : {0, 1}) {
            BackupHouse house;
            house.choose(house.written(BackupHouse::other()));
            house.model.reset();
            house.platform.alerts.choose(button);
            house.platform.settle();
            QVERIFY(house.stored() == BackupHouse::planner());
        }
    }
};

QTEST_GUILESS_MAIN(AppModelRestoringTests)
#include "AppModelRestoringTests.moc"
