#include "Model/TaskTable.h"
#include "Orvane/Seed.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

using namespace orvane;
using planner::PlannerTask;
using planner::RecordList;
using planner::Uuid;

namespace {

using Tasks = RecordList<PlannerTask>;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();

Uuid id(unsigned number) {
    Uuid id;
    for (std::size_t byte = 0; byte < 4; ++byte) id.bytes[15 - byte] = std::uint8_t(number >> (8 * byte));
    return id;
}

PlannerTask task(unsigned number, std::int64_t order) {
    return {id(number), "Task " + std::to_string(number), {double(number)}, order};
}

std::vector<Uuid> ids(const Tasks& tasks) {
    std::vector<Uuid> all;
    for (const auto& task : tasks) all.push_back(task.id);
    return all;
}

/// The plain way of moving: one vector, everything renumbered.
std::vector<Uuid> moved(std::vector<Uuid> all, const Uuid& what, const std::optional<Uuid>& before) {
    std::erase(all, what);
    const auto target = before ? std::find(all.begin(), all.end(), *before) : all.end();
    all.insert(target, what);
    return all;
}

} // namespace

class TaskTableTests : public QObject {
    Q_OBJECT

private slots:
    void aTaskIsFoundByItsIdWhereverEditsHaveMovedIt() {
        Tasks tasks;
        for (unsigned i = 0; i < 3000; ++i) tasks.push_back(task(i, i));
        TaskTable table(tasks);
        table.reset();
        for (unsigned i = 0; i < 1000; i += 2) table.take(*table.find(id(i)));
        QCOMPARE(table.find(id(0)), std::nullopt);
        QCOMPARE(table.find(id(1)), std::optional<std::size_t>(0));
        QCOMPARE(table.find(id(2999)), std::optional<std::size_t>(2499));
    }

    void anUnknownIdIsNotFoundAlsoInAnEmptyList() {
        Tasks tasks;
        TaskTable table(tasks);
        QCOMPARE(table.find(id(1)), std::nullopt);
        table.append(task(1, 0));
        table.take(0);
        QCOMPARE(table.find(id(1)), std::nullopt);
    }

    void theNextOrderIsOneAboveTheLargestAndZeroForAnEmptyList() {
        Tasks tasks{task(1, 0), task(2, 5), task(3, 2)};
        TaskTable table(tasks);
        table.reset();
        QCOMPARE(table.nextOrder(), 6);
        table.take(1);
        QCOMPARE(table.nextOrder(), 3);
        table.take(0);
        table.take(0);
        QCOMPARE(table.nextOrder(), 0);
        table.append(task(4, -7));
        QCOMPARE(table.nextOrder(), -6);
    }

    void theNextOrderAfterTheLargestNumberRenumbersTheListFirst() {
        Tasks tasks{task(1, -3), task(2, 8), task(3, largest)};
        TaskTable table(tasks);
        table.reset();
        QCOMPARE(table.nextOrder(), 3);
        QCOMPARE(tasks[0].order, 0);
        QCOMPARE(tasks[1].order, 1);
        QCOMPARE(tasks[2].order, 2);
    }

    void aMoveSharesTheChunksWhoseOrdersStay() {
        Tasks tasks;
        for (unsigned i = 0; i < 10 * Tasks::chunkCapacity; ++i) tasks.push_back(task(i, i));
        TaskTable table(tasks);
        table.reset();
        const auto before = tasks;
        table.move(tasks.size() - 1, id(unsigned(tasks.size()) - 3));
        std::size_t rewritten = 0;
        tasks.forEachUnshared(before, [&](const PlannerTask&) { ++rewritten; });
        QVERIFY(rewritten > 0);
        QVERIFY(rewritten <= Tasks::chunkCapacity);
    }

    void anyEditsGiveWhatThePlainWayGives() {
        std::mt19937 random(test::seed());
        const auto below = [&](std::size_t bound) { return random() % bound; };
        Tasks tasks;
        TaskTable table(tasks);
        std::vector<Uuid> plain;
        for (unsigned step = 0; step < 20'000; ++step) {
            const auto kind = below(10);
            if (plain.empty() || kind < (plain.size() < 1200 ? 5u : 2u)) {
                const auto next = table.nextOrder();
                for (const auto& other : tasks) QVERIFY(other.order < next);
                table.append(task(step, next));
                plain.push_back(id(step));
            } else if (kind < 8) {
                const auto what = plain[below(plain.size())];
                auto before = below(4) == 0 ? std::nullopt : std::optional(plain[below(plain.size())]);
                if (below(20) == 0) before = id(step + 1'000'000);
                if (before == what) continue;
                table.move(*table.find(what), before);
                plain = moved(std::move(plain), what, before);
            } else {
                const auto at = below(plain.size());
                QCOMPARE(table.take(*table.find(plain[at])).id, plain[at]);
                plain.erase(plain.begin() + std::ptrdiff_t(at));
            }
            if (step % 50 == 0) QVERIFY(ids(tasks) == plain);
        }
        QVERIFY(ids(tasks) == plain);
        for (std::size_t at = 0; at < plain.size(); ++at) QCOMPARE(table.find(plain[at]), std::optional(at));
    }
};

QTEST_APPLESS_MAIN(TaskTableTests)
#include "TaskTableTests.moc"
