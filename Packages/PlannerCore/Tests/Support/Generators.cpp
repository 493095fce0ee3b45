#include "Generators.h"

#include <PlannerCore/Detail/RecordCoding.h>
#include <PlannerCore/Titles.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <numeric>
#include <vector>

namespace planner {

namespace {

template <class Record>
std::ostream& print(std::ostream& out, const Record& record) {
    try {
        std::string json;
        detail::encode(record, json);
        return out << json;
    } catch (const JsonError& error) {
        return out << '<' << error.what() << '>';
    }
}

template <class Records>
void printList(std::ostream& out, const char* name, const Records& records) {
    out << "\n  " << name << ':';
    for (const auto& record : records) out << "\n    " << record;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Uuid& uuid) {
    return out << uuid.text();
}

std::ostream& operator<<(std::ostream& out, const PlannerTask& task) {
    return print(out, task);
}

std::ostream& operator<<(std::ostream& out, const DailyNote& note) {
    return print(out, note);
}

std::ostream& operator<<(std::ostream& out, const FocusSession& session) {
    return print(out, session);
}

std::ostream& operator<<(std::ostream& out, const PlannerSnapshot& snapshot) {
    out << "version " << snapshot.schemaVersion;
    printList(out, "tasks", snapshot.tasks);
    printList(out, "notes", snapshot.notes);
    printList(out, "sessions", snapshot.sessions);
    return out;
}

namespace generators {

namespace {

using rc::Gen;
namespace gen = rc::gen;

Gen<std::uint64_t> anyBits() {
    return gen::resize(rc::kNominalSize, gen::arbitrary<std::uint64_t>());
}

std::string utf8(std::uint32_t codePoint) {
    const auto tail = [&](unsigned shift) { return char(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) return {char(codePoint)};
    if (codePoint < 0x800) return {char(0xC0 | (codePoint >> 6)), tail(0)};
    if (codePoint < 0x10000) return {char(0xE0 | (codePoint >> 12)), tail(6), tail(0)};
    return {char(0xF0 | (codePoint >> 18)), tail(12), tail(6), tail(0)};
}

/// A character, or a few that mean something together.
Gen<std::string> piece() {
    const auto isCharacter = [](std::uint32_t codePoint) { return codePoint < 0xD800 || codePoint > 0xDFFF; };
    const auto common = gen::map(gen::inRange<std::uint32_t>(0x20, 0x7F), utf8);
    const auto control = gen::map(gen::inRange<std::uint32_t>(0, 0x20), utf8);
    const auto any = gen::map(gen::suchThat(gen::inRange<std::uint32_t>(0, 0x110000), isCharacter), utf8);
    const auto awkward = gen::element<std::string>(
        "\"", "\\", "/", "\r\n", "\x7F", "\u00A0", "\u0085", "\u2028", "\u2029", "\u3000", "\u200B", "\uFEFF",
        "\uFFFE", "e\u0301", "\u0301", "👩‍👩‍👧‍👦", "🇩🇪", "🇩", "\u1112\u1161\u11AB", "\u200D",
        "नि", "\U0010FFFF", "null", "\\u0000");
    return gen::weightedOneOf<std::string>({{8, common}, {2, control}, {3, any}, {4, awkward}});
}

std::string joined(const std::vector<std::string>& pieces) {
    return std::accumulate(pieces.begin(), pieces.end(), std::string());
}

template <class Record>
RecordList<Record> listOf(const std::vector<Record>& records) {
    RecordList<Record> list;
    for (const auto& record : records) list.push_back(record);
    return list;
}

/// Records of `one` whose identifiers differ.
template <class Record>
Gen<RecordList<Record>> distinct(const Gen<Record>& one) {
    return gen::map(gen::uniqueBy<std::vector<Record>>(one, [](const Record& record) { return record.id; }),
                    listOf<Record>);
}

Gen<FocusSession> sessionWith(const Gen<double>& target, const Gen<FocusStatus>& status,
                              const Gen<FocusSegment>& segment) {
    return gen::build<FocusSession>(
        gen::set(&FocusSession::id), gen::set(&FocusSession::taskID), gen::set(&FocusSession::title, text()),
        gen::set(&FocusSession::mode,
                 gen::elementOf(std::vector(allFocusModes.begin(), allFocusModes.end()))),
        gen::set(&FocusSession::target, target), gen::set(&FocusSession::status, status),
        gen::set(&FocusSession::createdAt),
        gen::set(&FocusSession::segments, gen::container<std::vector<FocusSegment>>(segment)));
}

Gen<PlannerTask> taskWith(const Gen<std::string>& title) {
    return gen::build<PlannerTask>(
        gen::set(&PlannerTask::id), gen::set(&PlannerTask::title, title), gen::set(&PlannerTask::createdAt),
        gen::set(&PlannerTask::completedAt, gen::map(gen::maybe(gen::arbitrary<Instant>()),
                                                     [](const rc::Maybe<Instant>& at) {
                                                         return at ? std::optional(*at) : std::nullopt;
                                                     })),
        gen::set(&PlannerTask::reminderAt, gen::map(gen::maybe(gen::arbitrary<Instant>()),
                                                    [](const rc::Maybe<Instant>& at) {
                                                        return at ? std::optional(*at) : std::nullopt;
                                                    })),
        gen::set(&PlannerTask::order,
                 gen::oneOf(gen::inRange<std::int64_t>(-5, 100),
                            gen::map(anyBits(), [](std::uint64_t bits) { return std::int64_t(bits); }),
                            gen::element(std::numeric_limits<std::int64_t>::min(),
                                         std::numeric_limits<std::int64_t>::max()))));
}

} // namespace

Gen<double> finiteNumber() {
    using Limits = std::numeric_limits<double>;
    const auto isFinite = [](double value) { return std::isfinite(value); };
    const auto fromBits = [](std::uint64_t bits) { return std::bit_cast<double>(bits); };
    const auto halves = [](int value) { return value / 2.0; };
    // Instants of our days, with the microseconds a clock gives.
    const auto clockTime = [](std::int64_t microseconds) { return double(microseconds) / 1e6; };
    return gen::weightedOneOf<double>(
        {{3, gen::map(gen::inRange(-100, 1000), halves)},
         {3, gen::map(gen::inRange<std::int64_t>(0, 1'000'000'000'000'000), clockTime)},
         {2, gen::suchThat(gen::map(anyBits(), fromBits), isFinite)},
         {2, gen::element(0.0, -0.0, 0.1, 1e-300, Limits::denorm_min(), -Limits::denorm_min(), Limits::min(),
                          Limits::max(), Limits::lowest(), 9007199254740991.0, 9007199254740992.0,
                          9007199254740994.0, -9007199254740991.0, 1e15, 1e16, 1e21, 1e22, 123456789.125)}});
}

Gen<std::string> text() {
    return gen::map(gen::container<std::vector<std::string>>(piece()), joined);
}

Gen<std::string> title() {
    return gen::map(gen::pair(text(), gen::inRange<std::uint32_t>('a', 'z' + 1)),
                    [](const std::pair<std::string, std::uint32_t>& parts) {
                        const auto& [text, letter] = parts;
                        return titles::isBlank(text) || titles::characterCount(text) > maximumTitleCharacters
                                   ? utf8(letter)
                                   : text;
                    });
}

Gen<std::string> dayKey() {
    return gen::map(gen::tuple(gen::inRange(1990, 2060), gen::inRange(1, 13), gen::inRange(1, 29)),
                    [](const std::tuple<int, int, int>& day) {
                        char key[40];
                        std::snprintf(key, sizeof key, "%04d-%02d-%02d", std::get<0>(day), std::get<1>(day),
                                      std::get<2>(day));
                        return std::string(key);
                    });
}

Gen<PlannerTask> validTask() {
    return taskWith(title());
}

Gen<FocusSession> validFinishedSession() {
    const auto seconds = gen::map(gen::inRange(0, 864'000), [](int tenths) { return tenths / 10.0; });
    const auto target = gen::map(gen::inRange(1, 864'001), [](int tenths) { return tenths / 10.0; });
    const auto segment =
        gen::build<FocusSegment>(gen::set(&FocusSegment::start), gen::set(&FocusSegment::duration, seconds));
    return sessionWith(target, gen::just(FocusStatus::finished), segment);
}

Gen<PlannerSnapshot> validSnapshot() {
    const auto finished =
        gen::build<PlannerSnapshot>(gen::set(&PlannerSnapshot::tasks, distinct(validTask())),
                                    gen::set(&PlannerSnapshot::notes, distinct(gen::arbitrary<DailyNote>())),
                                    gen::set(&PlannerSnapshot::sessions, distinct(validFinishedSession())));
    // At most one session may be unfinished.
    const auto unfinished = gen::element(FocusStatus::running, FocusStatus::paused, FocusStatus::finished);
    return gen::map(gen::tuple(finished, unfinished, gen::inRange<std::size_t>(0, 1000)),
                    [](const std::tuple<PlannerSnapshot, FocusStatus, std::size_t>& parts) {
                        auto [snapshot, status, place] = parts;
                        if (snapshot.sessions.empty()) return snapshot;
                        place %= snapshot.sessions.size();
                        auto session = snapshot.sessions[place];
                        session.status = status;
                        snapshot.sessions.replace(place, session);
                        return snapshot;
                    });
}

} // namespace generators
} // namespace planner

namespace rc {

using namespace planner;
using namespace planner::generators;

Gen<Uuid> Arbitrary<Uuid>::arbitrary() {
    return gen::map(
        gen::pair(anyBits(), anyBits()), [](const std::pair<std::uint64_t, std::uint64_t>& halves) {
            Uuid uuid;
            std::memcpy(uuid.bytes.data(), &halves.first, sizeof halves.first);
            std::memcpy(uuid.bytes.data() + sizeof halves.first, &halves.second, sizeof halves.second);
            return uuid;
        });
}

Gen<Instant> Arbitrary<Instant>::arbitrary() {
    return gen::map(finiteNumber(), [](double seconds) { return Instant{seconds}; });
}

Gen<PlannerTask> Arbitrary<PlannerTask>::arbitrary() {
    return taskWith(text());
}

Gen<DailyNote> Arbitrary<DailyNote>::arbitrary() {
    return gen::build<DailyNote>(
        gen::set(&DailyNote::id, gen::weightedOneOf<std::string>({{9, dayKey()}, {1, text()}})),
        gen::set(&DailyNote::text, text()), gen::set(&DailyNote::updatedAt));
}

Gen<FocusSegment> Arbitrary<FocusSegment>::arbitrary() {
    return gen::build<FocusSegment>(gen::set(&FocusSegment::start),
                                    gen::set(&FocusSegment::duration, finiteNumber()));
}

Gen<FocusSession> Arbitrary<FocusSession>::arbitrary() {
    return sessionWith(finiteNumber(),
                       gen::element(FocusStatus::running, FocusStatus::paused, FocusStatus::finished),
                       gen::arbitrary<FocusSegment>());
}

Gen<PlannerSnapshot> Arbitrary<PlannerSnapshot>::arbitrary() {
    return gen::build<PlannerSnapshot>(
        gen::set(&PlannerSnapshot::schemaVersion,
                 gen::oneOf(gen::just(std::int64_t(1)), gen::arbitrary<std::int64_t>())),
        gen::set(&PlannerSnapshot::tasks), gen::set(&PlannerSnapshot::notes),
        gen::set(&PlannerSnapshot::sessions));
}

} // namespace rc
