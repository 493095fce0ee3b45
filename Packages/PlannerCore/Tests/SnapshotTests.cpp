#include <PlannerCore/PlannerSnapshot.h>
#include <PlannerCore/Titles.h>

#include "Generators.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <string_view>

using namespace planner;
using namespace std::string_view_literals;

namespace {

constexpr auto unsupported = "This backup uses an unsupported format."sv;
constexpr auto duplicates = "The backup contains duplicate records."sv;
constexpr auto invalid = "The backup contains invalid or excessively large records."sv;

/// The sentence of a failure, or nothing.
std::string problemOf(const std::function<void()>& action) {
    try {
        action();
        return {};
    } catch (const PlannerError& error) {
        return error.what();
    }
}

std::string problemOf(const PlannerSnapshot& snapshot) {
    return problemOf([&] { snapshot.validated(); });
}

PlannerTask task(const std::string& title = "Water") {
    return {Uuid::random(), title, {0}, 0};
}

FocusSession session(FocusStatus status = FocusStatus::finished) {
    FocusSession session(Uuid::random(), "Read", FocusMode::countdown, 1500, {0});
    session.status = status;
    return session;
}

PlannerSnapshot with(const PlannerTask& task) {
    PlannerSnapshot snapshot;
    snapshot.tasks.push_back(task);
    return snapshot;
}

PlannerSnapshot with(const DailyNote& note) {
    PlannerSnapshot snapshot;
    snapshot.notes.push_back(note);
    return snapshot;
}

PlannerSnapshot with(std::initializer_list<FocusSession> sessions) {
    PlannerSnapshot snapshot;
    for (const auto& session : sessions) snapshot.sessions.push_back(session);
    return snapshot;
}

PlannerSnapshot withTarget(double target) {
    auto record = session();
    record.target = target;
    return with({record});
}

PlannerSnapshot withDurations(std::initializer_list<double> durations) {
    auto record = session();
    for (const auto duration : durations) record.segments.push_back({{0}, duration});
    return with({record});
}

} // namespace

TEST(Validation, TheDefaultSnapshotPassesUnchanged) {
    const PlannerSnapshot snapshot;
    EXPECT_EQ(&snapshot.validated(), &snapshot);
    EXPECT_EQ(snapshot, PlannerSnapshot());
}

TEST(Validation, VersionTwoFailsAsUnsupportedEvenWithDuplicateRecords) {
    auto snapshot = with(DailyNote("2026-03-07", "", {0}));
    snapshot.notes.push_back(DailyNote("2026-03-07", "", {0}));
    EXPECT_EQ(problemOf(snapshot), duplicates);
    for (const std::int64_t version : {2, 0, -1}) {
        snapshot.schemaVersion = version;
        EXPECT_EQ(problemOf(snapshot), unsupported);
    }
}

TEST(Validation, TwoNotesWithTheSameDayKeyFailAsDuplicates) {
    auto snapshot = with(DailyNote("2026-03-07", "One", {0}));
    snapshot.notes.push_back(DailyNote("2026-03-08", "Two", {0}));
    EXPECT_EQ(problemOf(snapshot), "");
    snapshot.notes.push_back(DailyNote("2026-03-07", "Three", {1}));
    EXPECT_EQ(problemOf(snapshot), duplicates);
}

TEST(Validation, TwoTasksOrSessionsWithTheSameIdentifierFailAsDuplicatesBeforeOtherRules) {
    auto snapshot = with(task(" "));
    snapshot.tasks.push_back(snapshot.tasks.front());
    EXPECT_EQ(problemOf(snapshot), duplicates);
    const auto record = session(FocusStatus::paused);
    EXPECT_EQ(problemOf(with({record, record})), duplicates);
}

TEST(Validation, ASessionMayShareItsIdentifierWithATask) {
    auto snapshot = with({session()});
    auto shared = task();
    shared.id = snapshot.sessions.front().id;
    snapshot.tasks.push_back(shared);
    EXPECT_EQ(problemOf(snapshot), "");
}

TEST(Validation, ATaskTitledWithThreeSpacesAndANewlineFails) {
    EXPECT_EQ(problemOf(with(task("   \n"))), invalid);
    EXPECT_EQ(problemOf(with(task(""))), invalid);
    EXPECT_EQ(problemOf(with(task("\u2003\u00A0\u2029"))), invalid);
}

TEST(Validation, ATaskWithA1000CharacterTitlePassesAnd1001CharactersFail) {
    const auto repeated = [](std::string_view character, std::size_t count) {
        std::string text;
        while (count-- > 0) text += character;
        return text;
    };
    for (const auto character :
         {"a"sv, "é"sv, "e\u0301"sv, "🇩🇪"sv, "👩‍👩‍👧‍👦"sv, "\r\n"sv}) {
        // White space alone would fail for being blank.
        EXPECT_EQ(problemOf(with(task("x" + repeated(character, 999)))), "") << character;
        EXPECT_EQ(problemOf(with(task("x" + repeated(character, 1000)))), invalid) << character;
    }
    EXPECT_EQ(problemOf(with(task("x" + std::string(999, ' ')))), "");
    // The length is that of the title as it stands, white space at its ends included.
    EXPECT_EQ(problemOf(with(task("x" + std::string(1000, ' ')))), invalid);
}

TEST(Validation, ANoteOfFiveMillionBytesPassesAndOneMoreFails) {
    EXPECT_EQ(problemOf(with(DailyNote("", std::string(5'000'000, 'x'), {0}))), "");
    EXPECT_EQ(problemOf(with(DailyNote("", std::string(5'000'001, 'x'), {0}))), invalid);
    // Bytes count, not characters.
    EXPECT_EQ(problemOf(with(DailyNote("", std::string(4'999'999, 'x') + "é", {0}))), invalid);
}

TEST(Validation, ANotesIdentifierAndDateAreNotChecked) {
    EXPECT_EQ(problemOf(with(DailyNote("no day at all", "", {std::nan("")}))), "");
}

TEST(Validation, TwoPausedSessionsFailAndOnePausedWithAnyNumberOfFinishedPasses) {
    using enum FocusStatus;
    EXPECT_EQ(problemOf(with({session(paused), session(paused)})), invalid);
    EXPECT_EQ(problemOf(with({session(running), session(paused)})), invalid);
    EXPECT_EQ(problemOf(with({session(running), session(running)})), invalid);
    EXPECT_EQ(problemOf(with({session(finished), session(paused), session(finished), session(finished)})),
              "");
    EXPECT_EQ(problemOf(with({session(running), session(finished)})), "");
}

TEST(Validation, ATargetOf0Or86400AndAHalfFailsAnd86400Passes) {
    for (const auto target :
         {0.0, -0.0, -1.0, 86400.5, std::nextafter(86400.0, 1e6), std::nan(""), double(INFINITY)})
        EXPECT_EQ(problemOf(withTarget(target)), invalid) << target;
    for (const auto target : {86400.0, 0.001, std::numeric_limits<double>::denorm_min()})
        EXPECT_EQ(problemOf(withTarget(target)), "") << target;
}

TEST(Validation, ASegmentWithANegativeDurationFailsAndOneWithDuration0Passes) {
    EXPECT_EQ(problemOf(withDurations({-0.001})), invalid);
    EXPECT_EQ(problemOf(withDurations({60, -0.001, 60})), invalid);
    EXPECT_EQ(problemOf(withDurations({std::nan("")})), invalid);
    EXPECT_EQ(problemOf(withDurations({INFINITY})), invalid);
    EXPECT_EQ(problemOf(withDurations({INFINITY, -INFINITY})), invalid);
    EXPECT_EQ(problemOf(withDurations({0})), "");
    EXPECT_EQ(problemOf(withDurations({0, -0.0, 60})), "");
}

TEST(Validation, TenYearsOfSegmentsPassAndMoreFails) {
    EXPECT_EQ(problemOf(withDurations({315'576'000})), "");
    EXPECT_EQ(problemOf(withDurations({315'575'999, 1})), "");
    EXPECT_EQ(problemOf(withDurations({315'576'000, 0.5})), invalid);
    EXPECT_EQ(problemOf(withDurations({1e308, 1e308})), invalid);
}

TEST(Validation, AHundredThousandRecordsPassInEachListAndOneMoreFails) {
    PlannerSnapshot snapshot;
    for (std::size_t index = 0; index < maximumRecords; ++index) {
        snapshot.tasks.push_back(task());
        snapshot.notes.push_back(DailyNote(std::to_string(index), "", {0}));
        snapshot.sessions.push_back(session());
    }
    EXPECT_EQ(problemOf(snapshot), "");

    auto oneMore = snapshot;
    oneMore.tasks.push_back(task());
    EXPECT_EQ(problemOf(oneMore), invalid);
    oneMore = snapshot;
    oneMore.notes.push_back(DailyNote("one more", "", {0}));
    EXPECT_EQ(problemOf(oneMore), invalid);
    oneMore = snapshot;
    oneMore.sessions.push_back(session());
    EXPECT_EQ(problemOf(oneMore), invalid);
    // Duplicates are found first.
    oneMore.sessions.push_back(oneMore.sessions.front());
    EXPECT_EQ(problemOf(oneMore), duplicates);
}

namespace {

// The rules once more, one after another, in the plainest and slowest way.

bool isBlankSlowly(std::string text) {
    constexpr std::array spaces{"\t"sv,     "\n"sv,     "\v"sv,     "\f"sv,     "\r"sv,
                                " "sv,      "\u0085"sv, "\u00A0"sv, "\u1680"sv, "\u2000"sv,
                                "\u2001"sv, "\u2002"sv, "\u2003"sv, "\u2004"sv, "\u2005"sv,
                                "\u2006"sv, "\u2007"sv, "\u2008"sv, "\u2009"sv, "\u200A"sv,
                                "\u2028"sv, "\u2029"sv, "\u202F"sv, "\u205F"sv, "\u3000"sv};
    for (bool found = true; found;) {
        found = false;
        for (const auto space : spaces)
            if (text.starts_with(space)) {
                text.erase(0, space.size());
                found = true;
            }
    }
    return text.empty();
}

template <class Records>
bool hasDuplicatesSlowly(const Records& records) {
    for (std::size_t left = 0; left < records.size(); ++left)
        for (std::size_t right = left + 1; right < records.size(); ++right)
            if (records[left].id == records[right].id) return true;
    return false;
}

bool isSessionValidSlowly(const FocusSession& session) {
    if (!std::isfinite(session.target)) return false;
    if (session.target <= 0) return false;
    if (session.target > 86400) return false;
    double sum = 0;
    for (const auto& segment : session.segments) sum = sum + segment.duration;
    if (!std::isfinite(sum)) return false;
    if (sum > 315576000) return false;
    for (const auto& segment : session.segments) {
        if (!std::isfinite(segment.duration)) return false;
        if (segment.duration < 0) return false;
    }
    return true;
}

std::string_view problemFoundSlowly(const PlannerSnapshot& snapshot) {
    if (snapshot.schemaVersion != 1) return unsupported;
    if (hasDuplicatesSlowly(snapshot.tasks)) return duplicates;
    if (hasDuplicatesSlowly(snapshot.notes)) return duplicates;
    if (hasDuplicatesSlowly(snapshot.sessions)) return duplicates;
    for (const auto& task : snapshot.tasks) {
        if (isBlankSlowly(task.title)) return invalid;
        if (titles::characterCount(task.title) > 1000) return invalid;
    }
    int unfinished = 0;
    for (const auto& session : snapshot.sessions) {
        if (session.status == FocusStatus::running) ++unfinished;
        if (session.status == FocusStatus::paused) ++unfinished;
    }
    if (unfinished > 1) return invalid;
    for (const auto& session : snapshot.sessions)
        if (!isSessionValidSlowly(session)) return invalid;
    return {};
}

} // namespace

TEST(Validation, AgreesWithTheRulesTakenOneByOne) {
    int valid = 0, refused = 0;
    EXPECT_TRUE(rc::check([&] {
        const auto snapshot = *generators::nearlyValidSnapshot();
        const auto before = snapshot;
        const auto problem = problemOf(snapshot);
        ++(problem.empty() ? valid : refused);
        RC_ASSERT(problem == problemFoundSlowly(snapshot));
        // Neither a copy nor the passing of time changed anything: a NaN differs from itself.
        RC_ASSERT(snapshot.tasks == before.tasks);
    }));
    // Both ways must have been taken for this to say anything.
    EXPECT_GT(valid, 0);
    EXPECT_GT(refused, 0);
}

RC_GTEST_PROP(Validation, EveryValidPlannerPasses, ()) {
    const auto snapshot = *generators::validSnapshot();
    RC_ASSERT(problemOf(snapshot) == "");
}
