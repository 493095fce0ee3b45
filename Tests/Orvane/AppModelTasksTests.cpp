#include "Orvane/ModelFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <climits>
#include <limits>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;
using planner::PlannerSnapshot;
using planner::Uuid;
using Titles = std::vector<std::string>;

namespace {

const QString tooLong = QStringLiteral("Task titles can contain up to 1,000 characters.");

/// A ready model with open tasks of these titles.
class Tasks : public ModelFixture {
public:
    explicit Tasks(const QStringList& titles = {}) {
        load();
        for (const auto& title : titles) add(title);
    }

    QStringList openRows() const {
        QStringList titles;
        for (int row = 0; row < model->openTasks()->count(); ++row)
            titles.append(model->openTasks()->index(row).data(TaskListModel::titleRole).toString());
        return titles;
    }
    std::vector<std::int64_t> orders() const {
        std::vector<std::int64_t> all;
        for (const auto& one : model->snapshot().tasks) all.push_back(one.order);
        return all;
    }
    QString idText(std::size_t position) const { return QString::fromStdString(task(position).id.text()); }
};

} // namespace

class AppModelTasksTests : public QObject {
    Q_OBJECT

private slots:
    void aTitleIsTrimmedAndTheTaskIsOpenAndMadeNow() {
        Tasks house;
        const auto id = house.model->addTask(QStringLiteral(" \t\u2003Buy tea\u2028\n"));
        const auto task = house.task(0);
        QCOMPARE(id, std::optional(task.id));
        QCOMPARE(task.title, std::string("Buy tea"));
        QCOMPARE(task.createdAt, house.platform.clock.now());
        QVERIFY(!task.isComplete() && !task.reminderAt);
        QCOMPARE(house.openRows(), QStringList{"Buy tea"});
    }

    void aBlankTitleAddsNothingSilently() {
        Tasks house;
        QCOMPARE(house.model->addTask(QStringLiteral("   ")), std::nullopt);
        QCOMPARE(house.model->addTask(QString()), std::nullopt);
        QVERIFY(house.model->snapshot().tasks.empty());
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(house.model->revision(), 0);
    }

    void aThousandCharactersAreTakenAndOneMoreIsRefusedWithASentence() {
        Tasks house;
        const QString family = QStringLiteral("👨‍👩‍👧‍👦");
        QVERIFY(house.model->addTask(family.repeated(1000)));
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(house.model->addTask(family.repeated(1001)), std::nullopt);
        QCOMPARE(house.model->error(), std::optional(tooLong));
        QCOMPARE(house.model->snapshot().tasks.size(), std::size_t(1));
    }

    void blanksAroundATitleDoNotCount() {
        Tasks house;
        QVERIFY(house.model->addTask(u' ' + QString(1000, u'x') + u' '));
    }

    void anOverlongTitleIsRefusedWithItsSentenceAlsoBeforeThePlannerIsOpen() {
        ModelFixture house;
        QCOMPARE(house.model->addTask(QString(1001, u'x')), std::nullopt);
        QCOMPARE(house.model->error(), std::optional(tooLong));
    }

    void theFirstTaskHasOrderZeroAndAnotherOneMoreThanTheLargest() {
        Tasks house;
        PlannerSnapshot planner;
        planner.tasks = {plainTask(0), plainTask(5), plainTask(2)};
        house.store(planner);
        house.renew();
        house.load();
        QCOMPARE(house.add(QStringLiteral("Tea")).order, 6);
        Tasks empty;
        QCOMPARE(empty.add(QStringLiteral("Tea")).order, 0);
    }

    void theLargestOrderThereIsRenumbersTheListFirst() {
        Tasks house;
        PlannerSnapshot planner;
        auto last = plainTask(1);
        last.order = std::numeric_limits<std::int64_t>::max();
        planner.tasks = {plainTask(7), last};
        house.store(planner);
        house.renew();
        house.load();
        house.add(QStringLiteral("Tea"));
        QCOMPARE(house.orders(), (std::vector<std::int64_t>{0, 1, 2}));
        QCOMPARE(house.titles(), (Titles{"Task 7", "Task 1", "Tea"}));
        house.platform.settle();
        QVERIFY(house.stored() == house.model->snapshot());
    }

    void aRenamedTaskKeepsEverythingElse() {
        Tasks house({"Tea"});
        const auto before = house.task(0);
        house.model->rename(before, QStringLiteral("  Green tea "));
        auto expected = before;
        expected.title = "Green tea";
        QVERIFY(house.task(0) == expected);
        QCOMPARE(house.openRows(), QStringList{"Green tea"});
        QCOMPARE(house.model->revision(), 2);
    }

    void aBlankOverlongOrUnknownRenamingChangesNothingSilently() {
        Tasks house({"Tea"});
        house.model->rename(house.task(0), QStringLiteral(" \n"));
        house.model->rename(house.task(0), QString(1001, u'x'));
        house.model->rename(plainTask(9), QStringLiteral("Other"));
        QCOMPARE(house.titles(), Titles{"Tea"});
        QCOMPARE(house.model->error(), std::nullopt);
        QCOMPARE(house.model->revision(), 1);
    }

    void aTaskIsCompletedNowAndOpenedAgain() {
        Tasks house({"Tea", "Bread"});
        house.platform.clock.advance(60);
        house.model->toggle(house.task(0));
        QCOMPARE(house.task(0).completedAt, std::optional(house.platform.clock.now()));
        QCOMPARE(house.openRows(), QStringList{"Bread"});
        QCOMPARE(house.model->completedTasks()->count(), 1);
        house.model->toggle(house.task(0));
        QVERIFY(!house.task(0).isComplete());
        QCOMPARE(house.openRows(), (QStringList{"Tea", "Bread"}));
    }

    void aTaskIsFoundByItsIdHoweverOldTheCopy() {
        Tasks house({"Tea"});
        const auto old = house.task(0);
        house.model->rename(old, QStringLiteral("Coffee"));
        house.model->toggle(old);
        house.model->toggle(old);
        QVERIFY(!house.task(0).isComplete());
        QCOMPARE(house.titles(), Titles{"Coffee"});
    }

    void completingTheTaskInFocusFinishesItsSession() {
        Tasks house({"Tea", "Bread"});
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.platform.clock.advance(5);
        house.model->toggle(house.task(1));
        QVERIFY(house.model->focus()->isRunning());
        house.model->toggle(house.task(0));
        QCOMPARE(house.model->focus()->engine()->session.status, FocusStatus::finished);
        house.platform.settle();
        QCOMPARE(house.stored().sessions[0].status, FocusStatus::finished);
        QVERIFY(house.stored().tasks[0].isComplete());
    }

    void openingACompletedTaskAgainLeavesTheTimerAlone() {
        Tasks house({"Tea"});
        house.model->toggle(house.task(0));
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.model->toggle(house.task(0));
        QVERIFY(house.model->focus()->isRunning());
    }

    void aRemovedTaskIsGoneAndCanBeBroughtBackAsItWas() {
        Tasks house({"Tea", "Bread", "Salt"});
        house.model->toggle(house.task(1));
        const auto bread = house.task(1);
        QSignalSpy offered(house.model.get(), &AppModel::canUndoDeleteChanged);
        house.model->deleteTask(bread);
        QCOMPARE(house.titles(), (Titles{"Tea", "Salt"}));
        QCOMPARE(house.model->notice(), QStringLiteral("Task removed."));
        QVERIFY(house.model->canUndoDelete());
        house.model->undoDelete();
        QCOMPARE(house.titles(), (Titles{"Tea", "Salt", "Bread"}));
        QVERIFY(house.task(2) == bread);
        QCOMPARE(house.model->notice(), std::nullopt);
        QVERIFY(!house.model->canUndoDelete());
        QCOMPARE(offered.size(), 2);
        house.platform.settle();
        QCOMPARE(ModelFixture::titles(house.stored()), (Titles{"Tea", "Bread", "Salt"}));
    }

    void onlyTheLastRemovalCanBeUndone() {
        Tasks house({"A", "B", "C"});
        house.model->deleteTask(house.task(0));
        house.model->deleteTask(house.task(0));
        house.model->undoDelete();
        QCOMPARE(house.titles(), (Titles{"C", "B"}));
        house.model->undoDelete();
        QCOMPARE(house.titles(), (Titles{"C", "B"}));
    }

    void anOldCopyRemovesTheTaskAsTheListHasIt() {
        Tasks house({"Tea"});
        const auto old = house.task(0);
        house.model->rename(old, QStringLiteral("Coffee"));
        house.model->deleteTask(old);
        house.model->undoDelete();
        QCOMPARE(house.titles(), Titles{"Coffee"});
    }

    void removingAnUnknownTaskDoesNothing() {
        Tasks house({"Tea"});
        house.model->deleteTask(plainTask(9));
        QVERIFY(!house.model->canUndoDelete());
        QCOMPARE(house.model->notice(), std::nullopt);
        QCOMPARE(house.model->revision(), 1);
    }

    void removingTheTaskInFocusFinishesItsSession() {
        Tasks house({"Tea"});
        house.model->focus()->start(house.task(0), FocusMode::countdown, 25);
        house.model->deleteTask(house.task(0));
        QCOMPARE(house.model->focus()->engine()->session.status, FocusStatus::finished);
        QCOMPARE(house.model->snapshot().sessions.size(), std::size_t(1));
    }

    void movingTheLastTaskFirstNumbersTheNewSequence() {
        Tasks house({"A", "B", "C"});
        house.model->moveTask(house.task(2).id, house.task(0).id);
        QCOMPARE(house.titles(), (Titles{"C", "A", "B"}));
        QCOMPARE(house.orders(), (std::vector<std::int64_t>{0, 1, 2}));
        QCOMPARE(house.openRows(), (QStringList{"C", "A", "B"}));
        house.platform.settle();
        QCOMPARE(ModelFixture::titles(house.stored()), (Titles{"C", "A", "B"}));
    }

    void aMissingTargetPutsTheTaskLast() {
        Tasks house({"A", "B", "C"});
        house.model->moveTask(house.task(0).id, Uuid::random());
        QCOMPARE(house.titles(), (Titles{"B", "C", "A"}));
        house.model->moveTaskBefore(house.idText(0), QString());
        QCOMPARE(house.titles(), (Titles{"C", "A", "B"}));
    }

    void movingATaskBeforeItselfOrAnUnknownOneDoesNothing() {
        Tasks house({"A", "B"});
        house.model->moveTask(house.task(1).id, house.task(1).id);
        house.model->moveTask(Uuid::random(), house.task(0).id);
        QCOMPARE(house.titles(), (Titles{"A", "B"}));
        QCOMPARE(house.model->revision(), 2);
    }

    void aTaskMovesPastItsNeighbourAmongTheOpenOnes() {
        Tasks house({"A", "done", "B", "C"});
        house.model->toggle(house.task(1));
        house.model->moveTask(house.task(0), 1);
        QCOMPARE(house.openRows(), (QStringList{"B", "A", "C"}));
        QCOMPARE(house.titles(), (Titles{"B", "A", "done", "C"}));
        house.model->moveTask(house.task(3), -1);
        QCOMPARE(house.openRows(), (QStringList{"B", "C", "A"}));
        QCOMPARE(house.orders(), (std::vector<std::int64_t>{0, 1, 2, 3}));
    }

    void anOffsetOutOfTheOpenListDoesNothing() {
        Tasks house({"A", "B", "done"});
        house.model->toggle(house.task(2));
        const auto revision = house.model->revision();
        house.model->moveTask(house.task(0), -1);
        house.model->moveTask(house.task(1), 1);
        house.model->moveTask(house.task(1), INT_MAX);
        house.model->moveTask(house.task(1), INT_MIN);
        house.model->moveTask(house.task(1), 0);
        house.model->moveTask(house.task(2), -1);
        house.model->moveTask(plainTask(1), 1);
        QCOMPARE(house.titles(), (Titles{"A", "B", "done"}));
        QCOMPARE(house.model->revision(), revision);
    }

    void theOpenTasksAreThoseNotCompletedInTheListsSequence() {
        Tasks house({"A", "B", "C"});
        house.model->toggle(house.task(1));
        Titles titles;
        for (const auto& task : house.model->incompleteTasks()) titles.push_back(task.title);
        QCOMPARE(titles, (Titles{"A", "C"}));
    }

    void viewsNameTasksByText() {
        Tasks house;
        const auto a = house.model->addTaskTitled(QStringLiteral("A"));
        const auto b = house.model->addTaskTitled(QStringLiteral("B"));
        QCOMPARE(a, house.idText(0));
        QCOMPARE(house.model->addTaskTitled(QStringLiteral(" ")), QString());
        house.model->renameTask(a, QStringLiteral("Alpha"));
        house.model->moveTaskBefore(b, a);
        QCOMPARE(house.titles(), (Titles{"B", "Alpha"}));
        house.model->moveTaskBy(b, 1);
        QCOMPARE(house.titles(), (Titles{"Alpha", "B"}));
        house.model->toggleTask(a);
        QVERIFY(house.task(0).isComplete());
        house.model->deleteTask(b);
        QCOMPARE(house.titles(), Titles{"Alpha"});
        house.model->deleteTask(QStringLiteral("no id"));
        QCOMPARE(house.titles(), Titles{"Alpha"});
    }

    void aFullListTakesNoMoreSinceItCouldNotBeOpenedAgain() {
        Tasks house;
        PlannerSnapshot planner;
        for (unsigned i = 0; i < planner::maximumRecords; ++i) planner.tasks.push_back(plainTask(i));
        house.store(planner);
        house.renew();
        house.load();
        QCOMPARE(house.model->addTask(QStringLiteral("Tea")), std::nullopt);
        QCOMPARE(house.model->error(), QStringLiteral("A planner can hold up to 100,000 tasks."));
        house.model->deleteTask(house.task(7));
        QVERIFY(house.model->addTask(QStringLiteral("Tea")));
        house.model->undoDelete();
        QVERIFY(house.model->canUndoDelete());
        QCOMPARE(house.model->snapshot().tasks.size(), planner::maximumRecords);
    }
};

QTEST_GUILESS_MAIN(AppModelTasksTests)
#include "AppModelTasksTests.moc"
