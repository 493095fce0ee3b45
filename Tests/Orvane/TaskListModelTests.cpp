#include "Model/TaskListModel.h"
#include "Orvane/Seed.h"

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QTest>

#include <algorithm>
#include <random>
#include <vector>

using namespace orvane;
using planner::PlannerTask;
using planner::Uuid;

namespace {

using Tasks = planner::RecordList<PlannerTask>;

Uuid id(unsigned number) {
    Uuid id;
    for (std::size_t byte = 0; byte < 4; ++byte) id.bytes[15 - byte] = std::uint8_t(number >> (8 * byte));
    return id;
}

QString idText(unsigned number) {
    return QString::fromStdString(id(number).text());
}

PlannerTask task(unsigned number, bool complete = false) {
    PlannerTask task{id(number), "Task " + std::to_string(number), {double(number)}, number};
    if (complete) task.completedAt = planner::Instant{5};
    return task;
}

Tasks openTasks(unsigned count) {
    Tasks tasks;
    for (unsigned i = 0; i < count; ++i) tasks.push_back(task(i));
    return tasks;
}

/// Follows a model by its signals alone, as a view does, and writes them down.
class Follower {
public:
    explicit Follower(TaskListModel& model)
        : tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest), model_(model) {
        rows = shown();
        QObject::connect(&model, &TaskListModel::modelReset,
                         [this] { changes.append(QStringLiteral("reset")); });
        QObject::connect(&model, &TaskListModel::layoutChanged,
                         [this] { changes.append(QStringLiteral("layout")); });
        QObject::connect(&model, &TaskListModel::rowsInserted,
                         [this](const QModelIndex&, int first, int last) {
                             note("insert", first, last);
                             for (int row = first; row <= last; ++row) rows.insert(row, read(row));
                         });
        QObject::connect(&model, &TaskListModel::rowsRemoved,
                         [this](const QModelIndex&, int first, int last) {
                             note("remove", first, last);
                             rows.remove(first, last - first + 1);
                         });
        QObject::connect(&model, &TaskListModel::rowsMoved,
                         [this](const QModelIndex&, int first, int last, const QModelIndex&, int before) {
                             if (first != last) qFatal("only single rows are moved");
                             const auto to = before > first ? before - 1 : before;
                             note("move", first, to);
                             rows.move(first, to);
                         });
        QObject::connect(&model, &TaskListModel::dataChanged,
                         [this](const QModelIndex& first, const QModelIndex& last) {
                             note("update", first.row(), last.row());
                             for (int row = first.row(); row <= last.row(); ++row) rows[row] = read(row);
                         });
    }

    /// A row as a view would show it.
    QString read(int row) const {
        const auto at = model_.index(row);
        return model_.data(at, TaskListModel::idRole).toString() + u'|' +
               model_.data(at, TaskListModel::titleRole).toString() + u'|' +
               model_.data(at, TaskListModel::completeRole).toString() + u'|' +
               model_.data(at, TaskListModel::reminderRole).toString();
    }

    /// All rows read anew.
    QStringList shown() const {
        QStringList all;
        for (int row = 0; row < model_.count(); ++row) all.append(read(row));
        return all;
    }

    QAbstractItemModelTester tester;
    QStringList changes;
    QStringList rows;

private:
    void note(const char* what, int first, int last) {
        changes.append(QStringLiteral("%1 %2-%3").arg(QLatin1String(what)).arg(first).arg(last));
    }

    TaskListModel& model_;
};

/// The rows that ought to be shown, found the plain way.
QStringList expected(const Tasks& tasks, bool complete) {
    QStringList rows;
    for (const auto& task : tasks) {
        if (task.isComplete() != complete) continue;
        const auto reminder =
            task.reminderAt ? QDateTime::fromMSecsSinceEpoch(
                                  std::int64_t((task.reminderAt->seconds + planner::unixEpochOffset) * 1000))
                            : QDateTime();
        rows.append(QString::fromStdString(task.id.text()) + u'|' + QString::fromStdString(task.title) +
                    u'|' + QVariant(complete).toString() + u'|' + QVariant(reminder).toString());
    }
    return rows;
}

} // namespace

class TaskListModelTests : public QObject {
    Q_OBJECT

private slots:
    void aModelShowsItsHalfOfTheTasksInTheirOrder() {
        const Tasks tasks{task(1), task(2, true), task(3), task(4, true)};
        TaskListModel open(TaskListModel::Shown::open);
        TaskListModel completed(TaskListModel::Shown::completed);
        open.setTasks(tasks);
        completed.setTasks(tasks);
        QCOMPARE(open.count(), 2);
        QCOMPARE(open.idAt(0), idText(1));
        QCOMPARE(open.idAt(1), idText(3));
        QCOMPARE(completed.idAt(0), idText(2));
        QCOMPARE(completed.rowOf(idText(4)), 1);
        QCOMPARE(completed.rowOf(idText(1)), -1);
        QCOMPARE(completed.rowOf(QStringLiteral("no id")), -1);
        QCOMPARE(completed.idAt(2), QString());
        QCOMPARE(completed.idAt(-1), QString());
    }

    void aRowHasTheTasksIdTitleStateAndReminder() {
        auto reminded = task(7);
        reminded.reminderAt = planner::Instant{0.5};
        TaskListModel model(TaskListModel::Shown::open);
        model.setTasks({reminded, task(8)});
        const auto value = [&](int row, const char* name) {
            return model.data(model.index(row), model.roleNames().key(name));
        };
        QCOMPARE(value(0, "taskId").toString(), idText(7));
        QCOMPARE(value(0, "title").toString(), QStringLiteral("Task 7"));
        QCOMPARE(value(0, "complete").toBool(), false);
        QCOMPARE(value(0, "reminderAt").toDateTime().toMSecsSinceEpoch(), 978307200500);
        QCOMPARE(value(1, "reminderAt").toDateTime().isValid(), false);
        QCOMPARE(model.data(model.index(0), Qt::DisplayRole), QVariant());
    }

    void anEditTouchesOnlyItsOwnRow_data() {
        QTest::addColumn<int>("edit");
        QTest::addColumn<QStringList>("changes");
        QTest::newRow("a task is added") << 0 << QStringList{"insert 1000-1000"};
        QTest::newRow("a task is renamed") << 1 << QStringList{"update 500-500"};
        QTest::newRow("a task is removed") << 2 << QStringList{"remove 500-500"};
        QTest::newRow("a task is completed") << 3 << QStringList{"remove 500-500"};
        QTest::newRow("a task moves up") << 4 << QStringList{"move 700-300"};
        QTest::newRow("a task moves down") << 5 << QStringList{"move 300-700"};
        QTest::newRow("the last task moves to the front") << 6 << QStringList{"move 999-0"};
        QTest::newRow("neighbours change places") << 7 << QStringList{"move 500-501"};
        QTest::newRow("a reminder is set") << 8 << QStringList{"update 999-999"};
        QTest::newRow("an order is given") << 9 << QStringList{};
    }

    void anEditTouchesOnlyItsOwnRow() {
        QFETCH(int, edit);
        QFETCH(QStringList, changes);
        auto tasks = openTasks(1000);
        TaskListModel model(TaskListModel::Shown::open);
        model.setTasks(tasks);
        Follower follower(model);
        const auto change = [&](std::size_t at, auto edited) {
            auto copy = tasks[at];
            edited(copy);
            tasks.replace(at, copy);
        };
        const auto move = [&](std::size_t from, std::size_t to) {
            const auto moved = tasks[from];
            tasks.erase(from);
            tasks.insert(to, moved);
            tasks.changeIf([](const auto&, auto) { return true; },
                           [](auto& one, auto index) { one.order = std::int64_t(index); });
        };
        switch (edit) {
        case 0:
            tasks.push_back(task(5000));
            break;
        case 1:
            change(500, [](auto& one) { one.title = "Other"; });
            break;
        case 2:
            tasks.erase(500);
            break;
        case 3:
            change(500, [](auto& one) { one.completedAt = planner::Instant{1}; });
            break;
        case 4:
            move(700, 300);
            break;
        case 5:
            move(300, 700);
            break;
        case 6:
            move(999, 0);
            break;
        case 7:
            move(500, 501);
            break;
        case 8:
            change(999, [](auto& one) { one.reminderAt = planner::Instant{1}; });
            break;
        default:
            change(10, [](auto& one) { one.order = 4; });
            break;
        }
        model.setTasks(tasks);
        QCOMPARE(follower.changes, changes);
        QCOMPARE(follower.rows, expected(tasks, false));
        QCOMPARE(follower.shown(), follower.rows);
    }

    void aCompletedTaskAppearsAmongTheCompletedAtItsPlace() {
        Tasks tasks{task(1, true), task(2), task(3, true)};
        TaskListModel model(TaskListModel::Shown::completed);
        model.setTasks(tasks);
        Follower follower(model);
        tasks.replace(1, task(2, true));
        model.setTasks(tasks);
        QCOMPARE(follower.changes, QStringList{"insert 1-1"});
    }

    void theSameTasksAgainChangeNothing() {
        const auto tasks = openTasks(600);
        TaskListModel model(TaskListModel::Shown::open);
        model.setTasks(tasks);
        Follower follower(model);
        model.setTasks(tasks);
        model.setTasks(openTasks(600));
        QCOMPARE(follower.changes, QStringList());
    }

    void theCountIsAnnouncedWhenItChanges() {
        TaskListModel model(TaskListModel::Shown::open);
        int announced = 0;
        connect(&model, &TaskListModel::countChanged, [&] { ++announced; });
        model.setTasks({task(1), task(2)});
        QCOMPARE(announced, 1);
        model.setTasks({task(2), task(1)});
        QCOMPARE(announced, 1);
        model.setTasks({});
        QCOMPARE(announced, 2);
    }

    void aHundredThousandTasksCanBeTurnedRound() {
        auto tasks = openTasks(100'000);
        TaskListModel model(TaskListModel::Shown::open);
        model.setTasks(tasks);
        std::vector<PlannerTask> turned(tasks.begin(), tasks.end());
        std::reverse(turned.begin(), turned.end());
        model.setTasks(Tasks(turned));
        QCOMPARE(model.count(), 100'000);
        for (int row = 0; row < model.count(); ++row)
            QCOMPARE(model.idAt(row), idText(99'999u - unsigned(row)));
    }

    void anySeriesOfEditsReachesAFollowerThroughSignalsAlone() {
        std::mt19937 random(test::seed());
        const auto below = [&](std::size_t bound) { return bound == 0 ? 0 : random() % bound; };
        auto tasks = openTasks(700);
        unsigned fresh = 10'000;
        TaskListModel open(TaskListModel::Shown::open);
        TaskListModel completed(TaskListModel::Shown::completed);
        Follower openFollower(open), completedFollower(completed);
        for (int step = 0; step < 400; ++step) {
            for (auto edits = below(12) == 0 ? below(80) : below(4); edits-- > 0;) {
                const auto at = below(tasks.size());
                switch (tasks.empty() ? 0 : below(7)) {
                case 0:
                    tasks.insert(below(tasks.size() + 1), task(fresh++, below(2) == 0));
                    break;
                case 1:
                    tasks.erase(at);
                    break;
                case 2:
                case 3: {
                    const auto moved = tasks[at];
                    tasks.erase(at);
                    tasks.insert(below(tasks.size() + 1), moved);
                    break;
                }
                case 4:
                    tasks.replace(at, task(unsigned(std::int64_t(tasks[at].createdAt.seconds)),
                                           !tasks[at].isComplete()));
                    break;
                default: {
                    auto edited = tasks[at];
                    edited.title += "!";
                    edited.reminderAt = planner::Instant{double(step)};
                    tasks.replace(at, edited);
                }
                }
            }
            open.setTasks(tasks);
            completed.setTasks(tasks);
            QCOMPARE(openFollower.rows, expected(tasks, false));
            QCOMPARE(completedFollower.rows, expected(tasks, true));
            QVERIFY(openFollower.shown() == openFollower.rows);
        }
        QVERIFY(!openFollower.changes.contains(QStringLiteral("reset")));
        QVERIFY(!openFollower.changes.contains(QStringLiteral("layout")));
    }
};

QTEST_GUILESS_MAIN(TaskListModelTests)
#include "TaskListModelTests.moc"
