#include "Orvane/BackupHouse.h"

#include <PlannerCore/BackupFile.h>

#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;
using planner::PlannerSnapshot;
using Titles = std::vector<std::string>;

namespace {

const QString tooLarge = QStringLiteral("Backups must be smaller than 50 MB.");
const QString done = QStringLiteral("Backup restored. Previous data was backed up locally.");

} // namespace

class AppModelBackupTests : public QObject {
    Q_OBJECT

private slots:
    void anExportHoldsThePlannerAndIsNamedAfterTheDay() {
        BackupHouse house;
        house.model->exportBackup();
        const auto& panel = house.platform.filePanels.shown.front();
        QVERIFY(panel.saves);
        QCOMPARE(panel.suggestedName, QStringLiteral("Orvane-2026-03-10.json"));
        QCOMPARE(house.suppressed, 1);
        QCOMPARE(house.restored, 0);
        house.platform.filePanels.choose(house.file("Out.json"));
        QCOMPARE(house.model->notice(), std::nullopt);
        QCOMPARE(house.restored, 0);
        house.platform.settle();
        QCOMPARE(house.model->notice(), std::optional(QStringLiteral("Backup exported.")));
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(house.restored, 1);
        QCOMPARE(fileBytes(house.file("Out.json")), BackupHouse::planner().backupData());
    }

    void anExportOnAnotherDayHasThatDaysName() {
        BackupHouse house;
        house.platform.clock.setNow(house.platform.clock.now() + 86400);
        house.model->exportBackup();
        QCOMPARE(house.platform.filePanels.shown.front().suggestedName,
                 QStringLiteral("Orvane-2026-03-11.json"));
    }

    void aCancelledExportWritesNothingAndShowsNothing() {
        BackupHouse house;
        const auto jobs = house.platform.storeExecutor.handedOver();
        house.model->exportBackup();
        house.platform.filePanels.cancel();
        house.platform.settle();
        QCOMPARE(house.platform.storeExecutor.handedOver(), jobs);
        QCOMPARE(house.model->notice(), std::nullopt);
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(house.suppressed, 1);
        QCOMPARE(house.restored, 1);
    }

    void anExportHoldsThePlannerOfTheMomentItsFileWasChosen() {
        BackupHouse house;
        house.model->exportBackup();
        house.add(QStringLiteral("Before"));
        house.platform.filePanels.choose(house.file("Out.json"));
        house.add(QStringLiteral("After"));
        house.platform.settle();
        QCOMPARE(BackupHouse::titles(planner::readBackup(house.file("Out.json"))),
                 (Titles{"Task 1", "Task 2", "Before"}));
    }

    void anExportThatFailsTellsTheSystemsText() {
        BackupHouse house;
        house.exportTo(house.file("missing") / "Out.json");
        QCOMPARE(house.model->error(), std::optional(QStringLiteral("No such file or directory")));
        QCOMPARE(house.model->notice(), std::nullopt);
        QCOMPARE(house.restored, 1);
        house.exportTo(house.folder());
        QCOMPARE(house.model->error(), std::optional(QStringLiteral("Is a directory")));
    }

    void anExportOfAnInvalidPlannerTellsItsRule() {
        BackupHouse house;
        PlannerSnapshot planner;
        planner.sessions = {session(plainTask(1), FocusStatus::paused)};
        house.store(planner);
        house.begin();
        // A second open session, as no command of the model makes one.
        house.model->focus()->onCheckpoint(session(plainTask(2), FocusStatus::paused));
        house.exportTo(house.file("Out.json"));
        QCOMPARE(house.model->error(),
                 std::optional(QStringLiteral("The backup contains invalid or excessively large records.")));
        QVERIFY(!std::filesystem::exists(house.file("Out.json")));
    }

    void anExportAboveTheLimitIsWrittenAndSaysThatItCannotBeRestored() {
        BackupHouse house;
        PlannerSnapshot planner;
        for (int day = 0; day < 11; ++day)
            planner.notes.push_back({"day " + std::to_string(day), std::string(4'600'000, 'n'), {1}});
        house.store(planner);
        house.begin();
        house.exportTo(house.file("Out.json"));
        QCOMPARE(house.model->notice(), std::optional(QStringLiteral("Backup exported.")));
        QCOMPARE(house.model->error(), std::optional(tooLarge));
        QVERIFY(std::filesystem::file_size(house.file("Out.json")) > planner::maximumBackupBytes);
    }

    void whatCannotBeSavedCanBeExported() {
        BackupHouse house;
        house.disk.failWrites(SQLITE_FULL);
        house.add(QStringLiteral("In memory"));
        house.platform.settle();
        QCOMPARE(house.model->saveState(), QStringLiteral("Not saved"));
        house.exportTo(house.file("Out.json"));
        QCOMPARE(house.model->notice(), std::optional(QStringLiteral("Backup exported.")));
        QCOMPARE(planner::readBackup(house.file("Out.json")).tasks.size(), std::size_t(3));
    }

    void nothingIsAskedBeforeThePlannerIsOpen() {
        ModelFixture house;
        int suppressed = 0;
        house.model->suppressPanel = [&] { ++suppressed; };
        house.model->exportBackup();
        house.model->importBackup();
        QVERIFY(house.platform.filePanels.shown.empty());
        QCOMPARE(suppressed, 0);
    }

    void onlyOneFileIsAskedForAtATime() {
        BackupHouse house;
        const auto both = [&] {
            house.model->exportBackup();
            house.model->importBackup();
        };
        both();
        QCOMPARE(house.platform.filePanels.shown.size(), std::size_t(1));
        house.platform.filePanels.choose(house.file("Out.json"));
        both();
        QVERIFY(house.platform.filePanels.shown.empty());
        house.platform.settle();
        house.choose(house.file("Out.json"));
        both();
        QVERIFY(house.platform.filePanels.shown.empty());
        house.agree();
        both();
        QVERIFY(house.platform.filePanels.shown.empty());
        house.platform.settle();
        QCOMPARE(house.suppressed, 2);
        QCOMPARE(house.restored, 2);
        both();
        QCOMPARE(house.platform.filePanels.shown.size(), std::size_t(1));
    }

    void aPanelAnsweredAfterTheModelIsGoneDoesNothing() {
        for (const bool exports : {true, false}) {
            BackupHouse house;
            exports ? house.model->exportBackup() : house.model->importBackup();
            const auto jobs = house.platform.storeExecutor.handedOver();
            house.model.reset();
            house.platform.filePanels.choose(house.file("Out.json"));
            QCOMPARE(house.platform.storeExecutor.handedOver(), jobs);
            QCOMPARE(house.restored, 0);
        }
    }

    void anExportInTheAirIsWrittenAlsoWhenTheModelIsGone() {
        BackupHouse house;
        house.model->exportBackup();
        house.platform.filePanels.choose(house.file("Out.json"));
        house.model.reset();
        house.platform.settle();
        QCOMPARE(planner::readBackup(house.file("Out.json")), BackupHouse::planner());
    }

    void aRestoreIsAskedAboutWithBothCounts() {
        BackupHouse house;
        house.model->importBackup();
        QVERIFY(!house.platform.filePanels.shown.front().saves);
        house.platform.filePanels.choose(house.written(BackupHouse::other()));
        QVERIFY(house.platform.alerts.open.empty());
        house.platform.settle();
        const auto& question = house.platform.alerts.open.front();
        QCOMPARE(question.message, QStringLiteral("Restore this planner backup?"));
        QCOMPARE(question.informative,
                 QStringLiteral("This replaces 2 tasks with 3 tasks. A backup of your current planner will "
                                "be kept on this Mac."));
        QCOMPARE(question.buttons, (QStringList{"Restore", "Cancel"}));
        QCOMPARE(question.cancelIndex, 1);
        QVERIFY(!house.model->restoring());
    }

    void aRestoreReplacesThePlannerAndKeepsTheOldOne() {
        BackupHouse house;
        house.restore(house.written(BackupHouse::other()));
        QCOMPARE(house.model->notice(), std::optional(done));
        QCOMPARE(house.model->error(), std::nullopt);
        QVERIFY(!house.model->restoring());
        QVERIFY(house.model->snapshot() == BackupHouse::other());
        QVERIFY(house.stored() == BackupHouse::other());
        QCOMPARE(house.model->openTasks()->count(), 3);
        QCOMPARE(house.model->saveState(), QStringLiteral("Saved on this Mac"));
        QCOMPARE(fileBytes(house.safetyCopy()), BackupHouse::planner().backupData());
        QCOMPARE(house.suppressed, 1);
        QCOMPARE(house.restored, 1);
    }

    void theRestoredPlannerCanBeEditedAndSaved() {
        BackupHouse house;
        house.restore(house.written(BackupHouse::other()));
        house.model->toggle(house.task(1));
        house.add(QStringLiteral("New"));
        house.platform.settle();
        QCOMPARE(house.titles(), (Titles{"Task 11", "Task 12", "Task 13", "New"}));
        QVERIFY(house.stored() == house.model->snapshot());
        QVERIFY(house.stored().tasks[1].isComplete());
    }

    void restoringTheKeptPlannerBringsBackEveryByteOfTheOldRows() {
        BackupHouse house;
        house.model->focus()->start(house.task(1), FocusMode::stopwatch, 25);
        house.platform.clock.advance(20);
        house.model->focus()->pause();
        house.model->updateNote(QStringLiteral("Typed"));
        house.platform.clock.advance(1);
        house.platform.settle();
        const auto before = house.rows();
        house.restore(house.written(BackupHouse::other()));
        QVERIFY(house.rows() != before);
        const auto kept = house.safetyCopy();
        house.restore(kept);
        QCOMPARE(house.model->notice(), std::optional(done));
        QVERIFY(house.rows() == before);
        QCOMPARE(house.model->focus()->engine()->session.status, FocusStatus::paused);
    }

    void cancellingEitherQuestionChangesNothingAndShowsNothing() {
        for (const bool inPanel : {true, false}) {
            BackupHouse house;
            const auto files = house.files();
            house.model->importBackup();
            if (inPanel) {
                house.platform.filePanels.cancel();
            } else {
                house.platform.filePanels.choose(house.written(BackupHouse::other()));
                house.platform.settle();
                house.platform.alerts.choose(1);
            }
            house.platform.settle();
            QVERIFY(house.platform.alerts.open.empty());
            QVERIFY(!house.model->restoring());
            QVERIFY(house.model->snapshot() == BackupHouse::planner());
            QVERIFY(house.files() == files);
            QVERIFY(house.safetyCopy().empty());
            QCOMPARE(house.model->notice(), std::nullopt);
            QCOMPARE(house.model->error(), std::nullopt);
            QCOMPARE(house.suppressed, 1);
            QCOMPARE(house.restored, 1);
        }
    }
};

QTEST_GUILESS_MAIN(AppModelBackupTests)
#include "AppModelBackupTests.moc"
