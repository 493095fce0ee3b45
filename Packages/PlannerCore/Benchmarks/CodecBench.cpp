#include "Compare.h"

#include <PlannerCore/Detail/RecordCoding.h>
#include <PlannerCore/Detail/Text.h>

#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <unordered_set>

using namespace planner;

namespace {

constexpr double now = 794'000'000;

std::string words(std::size_t length, std::size_t seed) {
    constexpr std::string_view some[] = {"plan ", "the week ",   "water ",   "call Zoë about the café ",
                                         "read ", "\"quoted\" ", "tidy up\n"};
    std::string text;
    while (text.size() < length) text += some[seed++ % std::size(some)];
    return text;
}

PlannerTask someTask(std::size_t index) {
    PlannerTask task(Uuid::random(), "Task " + std::to_string(index) + ": " + words(20, index),
                     {now + double(index) * 61.375}, std::int64_t(index));
    if (index % 2 == 0) task.completedAt = Instant{now + double(index) * 63.123456};
    if (index % 5 == 0) task.reminderAt = Instant{now + double(index) * 60};
    return task;
}

DailyNote someNote(std::size_t index, std::size_t length) {
    return {std::to_string(10'000 + index), words(length, index), {now + double(index) * 86'400.25}};
}

FocusSession someSession(std::size_t index, std::size_t segments) {
    FocusSession session(Uuid::random(), words(20, index), FocusMode::countdown, 1500, {now + double(index)});
    session.status = FocusStatus::finished;
    for (std::size_t segment = 0; segment < segments; ++segment)
        session.segments.push_back(
            {{now + double(index) + double(segment) * 15.015625}, 15.0 + double(segment) / 7});
    return session;
}

/// What a backup near its limit holds: 40,000 tasks, 10,000 notes, 4,000 sessions of 100 segments.
const PlannerSnapshot& largePlanner() {
    static const auto planner = [] {
        PlannerSnapshot snapshot;
        for (std::size_t index = 0; index < 40'000; ++index) snapshot.tasks.push_back(someTask(index));
        for (std::size_t index = 0; index < 10'000; ++index) snapshot.notes.push_back(someNote(index, 100));
        for (std::size_t index = 0; index < 4'000; ++index)
            snapshot.sessions.push_back(someSession(index, 100));
        return snapshot;
    }();
    return planner;
}

/// A hundred thousand records in each list.
const PlannerSnapshot& fullPlanner() {
    static const auto planner = [] {
        PlannerSnapshot snapshot;
        for (std::size_t index = 0; index < maximumRecords; ++index) {
            snapshot.tasks.push_back(someTask(index));
            snapshot.notes.push_back(someNote(index, 100));
            snapshot.sessions.push_back(someSession(index, 2));
        }
        return snapshot;
    }();
    return planner;
}

void require(bool holds) {
    if (!holds) std::abort();
}

/// Lets the library read `json` and hand what it finds to `handler`, with the care that we take too:
/// exact numbers and well-formed text.
template <class Handler>
void parse(const std::string& json, Handler& handler) {
    constexpr auto flags = rapidjson::kParseFullPrecisionFlag | rapidjson::kParseValidateEncodingFlag;
    rapidjson::StringStream stream(json.c_str());
    rapidjson::Reader reader;
    require(!reader.Parse<flags>(stream, handler).IsError());
}

/// Floor: the library's own parse and pretty write of the same bytes.
void exportBackup(benchmark::State& state) {
    const auto bytes = largePlanner().backupData();
    state.counters["MB"] = double(bytes.size()) / 1e6;
    compare(
        state, 1.3,
        [&] {
            rapidjson::StringBuffer buffer;
            rapidjson::PrettyWriter writer(buffer);
            writer.SetIndent(' ', 2);
            parse(bytes, writer);
            benchmark::DoNotOptimize(buffer.GetSize());
        },
        [&] { benchmark::DoNotOptimize(largePlanner().backupData()); });
}

/// Floor: the library's own parse of the same bytes, with nothing made of them.
void decodeBackup(benchmark::State& state) {
    const auto bytes = largePlanner().backupData();
    require(PlannerSnapshot::decodeBackup(bytes) == largePlanner());
    compare(
        state, 1.5,
        [&] {
            rapidjson::BaseReaderHandler<> nothing;
            parse(bytes, nothing);
        },
        [&] { benchmark::DoNotOptimize(PlannerSnapshot::decodeBackup(bytes)); });
}

template <class Records>
std::vector<std::string> encodedAll(const Records& records) {
    std::vector<std::string> rows;
    for (const auto& record : records) detail::encode(record, rows.emplace_back());
    return rows;
}

/// Floor: the library's own parse of all rows of a planner of 300,000 records, with nothing made of them.
void decodeRows(benchmark::State& state) {
    const auto tasks = encodedAll(fullPlanner().tasks);
    const auto notes = encodedAll(fullPlanner().notes);
    const auto sessions = encodedAll(fullPlanner().sessions);
    compare(
        state, 2,
        [&] {
            rapidjson::BaseReaderHandler<> nothing;
            for (const auto* rows : {&tasks, &notes, &sessions})
                for (const auto& row : *rows) parse(row, nothing);
        },
        [&] {
            PlannerSnapshot snapshot;
            for (const auto& row : tasks) snapshot.tasks.push_back(detail::decodeTask(row));
            for (const auto& row : notes) snapshot.notes.push_back(detail::decodeNote(row));
            for (const auto& row : sessions) snapshot.sessions.push_back(detail::decodeSession(row));
            benchmark::DoNotOptimize(snapshot);
        });
}

template <class Records>
void hashIdentifiers(const Records& records) {
    std::unordered_set<std::remove_cvref_t<decltype(records.front().id)>> identifiers;
    identifiers.reserve(records.size());
    for (const auto& record : records) identifiers.insert(record.id);
    require(identifiers.size() == records.size());
}

/// Floor: putting the identifiers of the same 300,000 records into hash sets.
void validate(benchmark::State& state) {
    compare(
        state, 2,
        [] {
            hashIdentifiers(fullPlanner().tasks);
            hashIdentifiers(fullPlanner().notes);
            hashIdentifiers(fullPlanner().sessions);
        },
        [] { benchmark::DoNotOptimize(fullPlanner().validated()); });
}

/// Floor: copying the text.
void countCharacters(benchmark::State& state) {
    const auto text = words(1'000'000, 0);
    std::string copy(text.size(), ' ');
    compare(
        state, 200, [&] { std::memcpy(copy.data(), text.data(), text.size()), benchmark::ClobberMemory(); },
        [&] { benchmark::DoNotOptimize(detail::characterCount(text)); });
}

BENCHMARK(exportBackup)->Name("Codec/export")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(decodeBackup)
    ->Name("Codec/decodeBackup")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);
BENCHMARK(decodeRows)
    ->Name("Codec/decodeRows/300k")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);
BENCHMARK(validate)
    ->Name("Codec/validate/300k")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);
BENCHMARK(countCharacters)
    ->Name("Codec/characterCount/1MB")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);

} // namespace
