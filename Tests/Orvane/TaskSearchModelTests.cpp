#include "Model/TaskSearchModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace orvane;
using planner::PlannerTask;

namespace {

using Tasks = planner::RecordList<PlannerTask>;

PlannerTask task(const char* title) {
    return {planner::Uuid::random(), title, {1}, 0};
}

/// A list of open tasks and a search in it.
struct Desk {
    explicit Desk(std::initializer_list<const char*> titles) {
        for (const auto* title : titles) tasks.push_back(task(title));
        list.setTasks(tasks);
        search.setTasks(&list);
    }

    QStringList found() const {
        QStringList titles;
        for (int row = 0; row < search.rowCount(); ++row)
            titles.append(search.data(search.index(row), TaskListModel::titleRole).toString());
        return titles;
    }
    QStringList found(const char* needle) {
        search.setNeedle(QString::fromUtf8(needle));
        return found();
    }
    QString id(std::size_t position) const { return QString::fromStdString(tasks[position].id.text()); }

    Tasks tasks;
    TaskListModel list{TaskListModel::Shown::open};
    TaskSearchModel search;
    QAbstractItemModelTester tester{&search, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace

class TaskSearchModelTests : public QObject {
    Q_OBJECT

private slots:
    void withoutANeedleEveryTaskIsFoundInItsOrder() {
        Desk desk{"Tea", "Bread", "Cheese"};
        QCOMPARE(desk.found(), QStringList({"Tea", "Bread", "Cheese"}));
        QCOMPARE(desk.search.count(), 3);
    }

    void aNeedleIsFoundAnywhereInATitleInAnyLetterCase() {
        Desk desk{"Tea for two", "BREAD", "Grüße an Ärzte", "чай"};
        QCOMPARE(desk.found("ea"), QStringList({"Tea for two", "BREAD"}));
        QCOMPARE(desk.found("EA F"), QStringList({"Tea for two"}));
        QCOMPARE(desk.found("äRZ"), QStringList({"Grüße an Ärzte"}));
        QCOMPARE(desk.found("ЧА"), QStringList({"чай"}));
        QCOMPARE(desk.found("coffee"), QStringList());
    }

    void whiteSpaceAroundTheNeedleDoesNotCount() {
        Desk desk{"Tea", "Bread"};
        QCOMPARE(desk.found("  tea "), QStringList({"Tea"}));
        QCOMPARE(desk.found("   "), QStringList({"Tea", "Bread"}));
    }

    void aNeedleIsNoPattern() {
        Desk desk{"Tea", "a.c", "100 %", "[x]"};
        QCOMPARE(desk.found("."), QStringList({"a.c"}));
        QCOMPARE(desk.found("[x"), QStringList({"[x]"}));
        QCOMPARE(desk.found("%"), QStringList({"100 %"}));
    }

    void rowsAndIdsAreThoseOfTheResult() {
        Desk desk{"Tea", "Bread", "More tea"};
        desk.search.setNeedle(QStringLiteral("tea"));
        QCOMPARE(desk.search.rowOf(desk.id(2)), 1);
        QCOMPARE(desk.search.rowOf(desk.id(1)), -1);
        QCOMPARE(desk.search.rowOf(QStringLiteral("nobody")), -1);
        QCOMPARE(desk.search.idAt(1), desk.id(2));
        QCOMPARE(desk.search.idAt(-1), QString());
        QCOMPARE(desk.search.idAt(2), QString());
        QCOMPARE(desk.search.data(desk.search.index(0), TaskListModel::idRole).toString(), desk.id(0));
    }

    void theResultFollowsTheList() {
        Desk desk{"Tea", "Bread", "More tea"};
        QCOMPARE(desk.found("tea"), QStringList({"Tea", "More tea"}));
        QSignalSpy counts(&desk.search, &TaskSearchModel::countChanged);
        desk.tasks.push_back(task("Teapot"));
        desk.list.setTasks(desk.tasks);
        QCOMPARE(desk.found(), QStringList({"Tea", "More tea", "Teapot"}));
        auto renamed = desk.tasks[0];
        renamed.title = "Coffee";
        desk.tasks.replace(0, renamed);
        desk.list.setTasks(desk.tasks);
        QCOMPARE(desk.found(), QStringList({"More tea", "Teapot"}));
        QCOMPARE(counts.count(), 2);
        auto done = desk.tasks[2];
        done.completedAt = planner::Instant{2};
        desk.tasks.replace(2, done);
        desk.list.setTasks(desk.tasks);
        QCOMPARE(desk.found(), QStringList({"Teapot"}));
    }

    void withoutAListNothingIsFoundAndNothingIsFollowed() {
        Desk desk{"Tea"};
        desk.search.setTasks(nullptr);
        QCOMPARE(desk.found(), QStringList());
        QSignalSpy resets(&desk.search, &TaskSearchModel::modelReset);
        desk.tasks.push_back(task("Bread"));
        desk.list.setTasks(desk.tasks);
        QCOMPARE(resets.count(), 0);
        QCOMPARE(desk.search.rowOf(desk.id(0)), -1);
        desk.search.setTasks(&desk.list);
        QCOMPARE(desk.found(), QStringList({"Tea", "Bread"}));
    }

    void theSameNeedleIsNotSearchedAgain() {
        Desk desk{"Tea"};
        desk.search.setNeedle(QStringLiteral("t"));
        QSignalSpy resets(&desk.search, &TaskSearchModel::modelReset);
        desk.search.setNeedle(QStringLiteral("t"));
        QCOMPARE(resets.count(), 0);
    }
};

QTEST_GUILESS_MAIN(TaskSearchModelTests)
#include "TaskSearchModelTests.moc"
