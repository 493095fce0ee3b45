#include "Orvane/BackupHouse.h"
#include "Orvane/Seed.h"
#include "TestScale.h"

#include <PlannerCore/BackupFile.h>

#include <QTest>

#include <random>
#include <utility>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;
using planner::PlannerSnapshot;

namespace {

constexpr int steps = 150'000;

/// A model put through random commands, restores and failures of the disk in between. Every planner has a
/// name of its own, with which the titles of all its tasks begin.
class Chaos : public BackupHouse {
public:
    explicit Chaos(unsigned seed) : random_(seed) {}

    void step() {
        // Mostly the worker's, so that everything has also come to rest now and then.
        const auto turn = pick(7);
        if (turn == 0) return act(pick(12));
        if (turn < 4)
            platform.storeExecutor.work();
        else
            platform.storeExecutor.tell();
    }

    /// Lets everything come to its end on a sound disk.
    void rest() {
        disk.heal();
        while (!platform.filePanels.shown.empty()) platform.filePanels.cancel();
        platform.settle();
        while (!platform.alerts.open.empty()) platform.alerts.choose(1);
        model->persist();
        platform.clock.advance(1);
        platform.settle();
    }

    /// Whether the model says that everything is on disk, with nothing in the air, and has not said so of the
    /// same revision before.
    bool saysSavedAnew() {
        auto& worker = platform.storeExecutor;
        const bool says = worker.waiting() + worker.untold() == 0 && !model->restoring() &&
                          model->saveState() == QStringLiteral("Saved on this Mac");
        return says && std::exchange(seen_, model->lastSavedRevision()) != model->lastSavedRevision();
    }

    /// The name that all tasks of `planner` share; empty when they do not.
    static std::string nameOf(const PlannerSnapshot& planner) {
        std::string name;
        for (const auto& task : planner.tasks) {
            const auto own = task.title.substr(0, task.title.find(' '));
            if (!name.empty() && own != name) return {};
            name = own;
        }
        return name;
    }

    int flushesAsked = 0;
    int flushesAnswered = 0;
    int restores = 0;
    int refusals = 0;

private:
    void act(int kind) {
        switch (kind) {
        case 0:
            return addOne();
        case 1:
            return model->updateNote(QString::number(pick(1000)));
        case 2:
            return model->persist();
        case 3:
            return flushOnce();
        case 4:
            return platform.clock.advance(0.3);
        case 5:
            return startOrPause();
        case 6:
            return model->importBackup();
        case 7:
            return model->exportBackup();
        case 8:
            return answerPanel();
        case 9:
            return answerQuestion();
        case 10:
            return pick(4) == 0 ? disk.failWrites(SQLITE_IOERR) : disk.heal();
        default:
            return disk.failAt(std::size_t(pick(12)), SQLITE_FULL, true);
        }
    }
    int pick(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }

    void addOne() {
        const auto count = model->snapshot().tasks.size();
        const auto title = nameOf(model->snapshot()) + " " + std::to_string(++made_);
        const bool added = model->addTask(QString::fromStdString(title)).has_value();
        if (added == model->restoring()) qFatal("a task was added during a restore, or refused without one");
        if (model->snapshot().tasks.size() != count + (added ? 1 : 0)) qFatal("a task was lost");
    }
    void flushOnce() {
        ++flushesAsked;
        model->flush([this](bool) { ++flushesAnswered; });
    }
    void startOrPause() {
        if (model->focus()->isRunning())
            model->focus()->pause();
        else
            model->beginFocus(task(0), FocusMode::stopwatch, 25);
    }
    void answerPanel() {
        if (platform.filePanels.shown.empty()) return;
        if (platform.filePanels.shown.front().saves) {
            platform.filePanels.choose(file("Export.json"));
        } else if (const int kind = pick(8); kind == 0) {
            platform.filePanels.cancel();
        } else if (kind == 1) {
            platform.filePanels.choose(written("no backup"));
        } else {
            PlannerSnapshot backup;
            const auto name = "planner" + std::to_string(++made_);
            for (int index = 0; index <= pick(4); ++index)
                backup.tasks.push_back(
                    {planner::Uuid::random(), name + " " + std::to_string(index), {1}, index});
            if (pick(2) == 0) backup.sessions = {session(backup.tasks[0], FocusStatus::running)};
            platform.filePanels.choose(written(backup));
        }
    }
    void answerQuestion() {
        if (platform.alerts.open.empty()) return;
        if (pick(6) == 0) return platform.alerts.choose(1);
        const auto name = nameOf(model->snapshot());
        const auto copies = namesIn(folder()).size();
        agree();
        if (pick(2) == 0) return; // What comes next comes in between.
        if (pick(2) == 0) disk.heal();
        model->setError(std::nullopt);
        platform.settle();
        if (model->error().value_or(QString()).startsWith(QStringLiteral("Restore failed"))) {
            ++refusals;
            if (nameOf(model->snapshot()) != name) qFatal("a refused restore replaced the planner");
        } else {
            ++restores;
            if (nameOf(model->snapshot()) == name) qFatal("a restore replaced nothing");
            if (namesIn(folder()).size() <= copies) qFatal("a restore kept no copy");
        }
    }

    std::mt19937_64 random_;
    int made_ = 0;
    std::int64_t seen_ = 0;
};

} // namespace

class AppModelRestoreRandomTests : public QObject {
    Q_OBJECT

private slots:
    void whateverComesBetweenNoTwoPlannersAreEverMixed() {
        Chaos house(seed());
        for (int step = 0; step < scaled(steps); ++step) {
            house.step();
            QVERIFY(!Chaos::nameOf(house.model->snapshot()).empty());
            if (house.saysSavedAnew()) {
                house.disk.heal();
                QVERIFY(house.stored().tasks == house.model->snapshot().tasks);
            }
            if (step % 1000 != 0) continue;
            house.rest();
            QVERIFY(!house.model->restoring());
            QCOMPARE(house.suppressed, house.restored);
            QCOMPARE(house.flushesAnswered, house.flushesAsked);
            QCOMPARE(house.model->lastSavedRevision(), house.model->revision());
            QVERIFY(house.stored().tasks == house.model->snapshot().tasks);
            QCOMPARE(house.stored().sessions.size(), house.model->snapshot().sessions.size());
        }
        qInfo("%d restores, %d refused", house.restores, house.refusals);
        QVERIFY(house.restores > 0);
        if (scaled(steps) == steps) QVERIFY(house.refusals > 0);
    }
};

QTEST_GUILESS_MAIN(AppModelRestoreRandomTests)
#include "AppModelRestoreRandomTests.moc"
