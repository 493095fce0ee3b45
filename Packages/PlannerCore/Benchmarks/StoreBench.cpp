#include "Compare.h"

#include <PlannerCore/Detail/RecordCoding.h>
#include <PlannerCore/Detail/Sqlite.h>
#include <PlannerCore/Detail/StoreRecords.h>
#include <PlannerCore/PlannerRepository.h>

#include "ScratchFolder.h"

#include <string>
#include <tuple>
#include <vector>

using namespace planner;

namespace {

constexpr double now = 794'000'000;

FocusSession session(std::size_t index, std::size_t segments) {
    FocusSession session(Uuid::random(), "Task " + std::to_string(index), FocusMode::countdown, 1500,
                         Instant{now + double(index)});
    session.status = FocusStatus::finished;
    for (std::size_t segment = 0; segment < segments; ++segment)
        session.segments.push_back(
            {Instant{now + double(index) + double(segment) * 15.015625}, 15.0 + double(segment) / 7});
    return session;
}

PlannerSnapshot plannerOf(std::size_t tasks, std::size_t notes, std::size_t sessions, std::size_t segments) {
    PlannerSnapshot planner;
    for (std::size_t index = 0; index < tasks; ++index)
        planner.tasks.push_back({Uuid::random(), "Water the plants on the balcony " + std::to_string(index),
                                 Instant{now + double(index) * 61.375}, std::int64_t(index)});
    for (std::size_t index = 0; index < notes; ++index)
        planner.notes.push_back(
            {std::to_string(100'000 + index), std::string(100, 'n'), Instant{now + double(index)}});
    for (std::size_t index = 0; index < sessions; ++index)
        planner.sessions.push_back(session(index, segments));
    return planner;
}

struct Row {
    std::string key;
    std::string_view kind;
    std::string payload;
};

std::vector<Row> rowsOf(const PlannerSnapshot& planner) {
    std::vector<Row> rows;
    detail::forEachList(planner, [&]<class Record>(const RecordList<Record>& records) {
        for (const auto& record : records) {
            auto& row = rows.emplace_back();
            detail::StoredAs<Record>::appendKey(record, row.key);
            row.kind = detail::StoredAs<Record>::kind;
            detail::encode(record, row.payload);
        }
    });
    return rows;
}

/// A database of the same table with nothing around it: what SQLite itself costs.
class BareTable {
public:
    explicit BareTable(const std::filesystem::path& folder)
        : database_(folder / "bare.sqlite", detail::Access::readWrite) {
        database_.execute("PRAGMA journal_mode = WAL");
        database_.execute("PRAGMA synchronous = FULL");
        database_.execute("CREATE TABLE PlannerRecord(key TEXT PRIMARY KEY NOT NULL, kind TEXT NOT NULL, "
                          "payload BLOB NOT NULL)");
    }
    /// Puts `rows` in place of whatever there was, in one transaction.
    void replace(const std::vector<Row>& rows) {
        detail::Transaction transaction(database_, detail::Transaction::Kind::write);
        database_.execute("DELETE FROM PlannerRecord");
        detail::Statement insert(database_, "INSERT INTO PlannerRecord VALUES(?, ?, ?)");
        for (const auto& row : rows) {
            insert.bindText(1, row.key);
            insert.bindText(2, row.kind);
            insert.bindBlob(3, row.payload);
            insert.run();
        }
        transaction.commit();
    }
    detail::Database& database() { return database_; }

private:
    detail::Database database_;
};

/// Floor: the UPDATE of the one row of a table and its COMMIT.
void edit(benchmark::State& state) {
    const ScratchFolder folder;
    const auto third = std::size_t(state.range(0)) / 3;
    auto planner = plannerOf(third + 1, third, third, 2);
    PlannerRepository repository(folder.path());
    repository.save(planner);

    BareTable bare(folder.path());
    bare.replace(rowsOf(plannerOf(1, 0, 0, 0)));
    detail::Statement update(bare.database(), "UPDATE PlannerRecord SET payload = ?");
    std::string payload(150, 'x');
    std::size_t turn = 0;
    compare(
        state, 2,
        [&] {
            payload[0] = char('a' + turn % 26);
            detail::Transaction transaction(bare.database(), detail::Transaction::Kind::write);
            update.bindBlob(1, payload);
            update.run();
            transaction.commit();
        },
        [&] {
            const auto place = ++turn * 7919 % planner.tasks.size();
            auto task = planner.tasks[place];
            task.title = "Renamed " + std::to_string(turn);
            planner.tasks.replace(place, task);
            const auto copy = planner;
            repository.save(copy);
        });
    static double none = 0;
    if (state.range(0) == 0) none = state.counters["median_ms"];
    state.counters["to_none"] = state.counters["median_ms"] / none;
}

/// A session of 24 hours that is checkpointed every 15 seconds: a row of about 0.3 MB. Floor: as above,
/// with as long a row.
void checkpointOfALongSession(benchmark::State& state) {
    const ScratchFolder folder;
    auto planner = plannerOf(1000, 100, 0, 0);
    planner.sessions.push_back(session(0, 5760));
    PlannerRepository repository(folder.path());
    repository.save(planner);
    BareTable bare(folder.path());
    auto rows = rowsOf(planner);
    rows.erase(rows.begin(), rows.end() - 1);
    bare.replace(rows);
    detail::Statement update(bare.database(), "UPDATE PlannerRecord SET payload = ?");
    state.counters["MB"] = double(rows[0].payload.size()) / 1e6;
    compare(
        state, 4,
        [&] {
            ++rows[0].payload[100];
            detail::Transaction transaction(bare.database(), detail::Transaction::Kind::write);
            update.bindBlob(1, rows[0].payload);
            update.run();
            transaction.commit();
        },
        [&] {
            auto running = planner.sessions[0];
            running.segments.back().duration += 15;
            planner.sessions.replace(0, std::move(running));
            repository.save(planner);
        });
}

/// Floor: reading all rows into strings.
void load(benchmark::State& state) {
    const ScratchFolder folder;
    const auto planner = plannerOf(100'000, 100'000, 100'000, 2);
    PlannerRepository(folder.path()).save(planner);
    PlannerRepository repository(folder.path());
    detail::Database database(folder / "Planner.sqlite", detail::Access::readOnly);
    compare(
        state, 4,
        [&] {
            detail::Statement select(database, "SELECT key, kind, payload FROM PlannerRecord");
            std::vector<std::tuple<std::string, std::string, std::string>> rows;
            while (select.step()) rows.emplace_back(*select.text(0), *select.text(1), *select.blob(2));
            benchmark::DoNotOptimize(rows.data());
        },
        [&] { benchmark::DoNotOptimize(repository.load()); });
}

/// Two planners whose backups are near the limit, none of whose records is the other's.
struct LargePlanners {
    PlannerSnapshot first = plannerOf(40'000, 10'000, 4'000, 100);
    PlannerSnapshot second = plannerOf(40'000, 10'000, 4'000, 100);
};

/// Floor: writing the same rows in the place of as many others in one transaction.
template <class Restore>
void restoreAgainst(benchmark::State& state, double reach, Restore restore) {
    const ScratchFolder folder;
    const LargePlanners planners;
    const auto firstRows = rowsOf(planners.first), secondRows = rowsOf(planners.second);
    const std::string firstBackup = planners.first.backupData(), secondBackup = planners.second.backupData();
    state.counters["MB"] = double(firstBackup.size()) / 1e6;
    BareTable bare(folder.path());
    bare.replace(firstRows);
    PlannerRepository repository(folder.path());
    repository.save(planners.first);
    bool isSecond = false;
    compare(
        state, reach, [&] { bare.replace(isSecond ? firstRows : secondRows); },
        [&] {
            restore(repository, isSecond ? planners.second : planners.first,
                    isSecond ? planners.first : planners.second, isSecond ? firstBackup : secondBackup);
            isSecond = !isSecond;
        });
}

void replaceAll(benchmark::State& state) {
    restoreAgainst(state, 1.5,
                   [](PlannerRepository& repository, const auto&, const PlannerSnapshot& next, const auto&) {
                       repository.save(next);
                   });
}

void restoreWhole(benchmark::State& state) {
    restoreAgainst(state, 4,
                   [](PlannerRepository& repository, const PlannerSnapshot& current, const auto&,
                      const std::string& backup) {
                       const auto next = PlannerSnapshot::decodeBackup(backup);
                       const auto copy = repository.preserveBackup(current);
                       repository.save(next);
                       std::filesystem::remove(copy);
                   });
}

BENCHMARK(edit)
    ->Name("Store/edit")
    ->Arg(0)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(300'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1500);
BENCHMARK(checkpointOfALongSession)
    ->Name("Store/checkpoint/24h")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(100);
BENCHMARK(load)->Name("Store/load/300k")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);
BENCHMARK(replaceAll)->Name("Store/replace")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);
BENCHMARK(restoreWhole)->Name("Store/restore")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
