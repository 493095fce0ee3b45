#pragma once

#include <PlannerCore/PlannerSnapshot.h>

#include <rapidcheck.h>

#include <ostream>
#include <string>

/// Random planner records for property tests. `rc::gen::arbitrary<PlannerTask>()` and its like give
/// records that can be written and read back, whether they keep the planner's rules or not: their
/// numbers are finite, their texts UTF-8, and both favour the awkward ones.
namespace planner::generators {

/// Any finite number: small ones, fractions, denormals, the limits, random bits.
rc::Gen<double> finiteNumber();

/// Any well-formed UTF-8: controls and zero bytes, quotes, every white space, combining marks, joined
/// emoji, characters from all planes.
rc::Gen<std::string> text();

/// A title that keeps the rules: not blank, at most 1,000 characters.
rc::Gen<std::string> title();

/// The key of some day, "2026-03-07".
rc::Gen<std::string> dayKey();

/// A task, or a finished session, that keeps the rules.
rc::Gen<PlannerTask> validTask();
rc::Gen<FocusSession> validFinishedSession();

/// A planner that keeps every rule; `rc::gen::scale` makes it larger.
rc::Gen<PlannerSnapshot> validSnapshot();

/// A valid planner with up to three changes at the edge of a rule, just inside or just outside it.
/// Lists beyond 100,000 records and notes beyond 5,000,000 bytes are left to tests of their own.
rc::Gen<PlannerSnapshot> nearlyValidSnapshot();

} // namespace planner::generators

namespace planner {

/// What a failing test prints: the record's JSON, or why it has none.
std::ostream& operator<<(std::ostream& out, const Uuid& uuid);
std::ostream& operator<<(std::ostream& out, const PlannerTask& task);
std::ostream& operator<<(std::ostream& out, const DailyNote& note);
std::ostream& operator<<(std::ostream& out, const FocusSession& session);
std::ostream& operator<<(std::ostream& out, const PlannerSnapshot& snapshot);

} // namespace planner

namespace rc {

template <>
struct Arbitrary<planner::Uuid> {
    static Gen<planner::Uuid> arbitrary();
};

template <>
struct Arbitrary<planner::Instant> {
    static Gen<planner::Instant> arbitrary();
};

template <>
struct Arbitrary<planner::PlannerTask> {
    static Gen<planner::PlannerTask> arbitrary();
};

template <>
struct Arbitrary<planner::DailyNote> {
    static Gen<planner::DailyNote> arbitrary();
};

template <>
struct Arbitrary<planner::FocusSegment> {
    static Gen<planner::FocusSegment> arbitrary();
};

template <>
struct Arbitrary<planner::FocusSession> {
    static Gen<planner::FocusSession> arbitrary();
};

/// Lists may hold an identifier twice; see `planner::generators::validSnapshot`.
template <>
struct Arbitrary<planner::PlannerSnapshot> {
    static Gen<planner::PlannerSnapshot> arbitrary();
};

template <class T>
struct Arbitrary<planner::RecordList<T>> {
    static Gen<planner::RecordList<T>> arbitrary() {
        return gen::map(gen::arbitrary<std::vector<T>>(), [](const std::vector<T>& records) {
            planner::RecordList<T> list;
            for (const auto& record : records) list.push_back(record);
            return list;
        });
    }
};

} // namespace rc
