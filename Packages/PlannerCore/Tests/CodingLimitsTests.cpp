#include <PlannerCore/Detail/RecordCoding.h>

#include "Generators.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace planner;
using namespace planner::detail;
using namespace std::string_view_literals;

namespace {

using Doubles = std::numeric_limits<double>;
using Integers = std::numeric_limits<std::int64_t>;

std::string taskWith(const std::string& order, const std::string& createdAt) {
    return R"({"createdAt":)" + createdAt + R"(,"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","order":)" +
           order + R"(,"title":"Water"})";
}

std::int64_t decodedOrder(const std::string& spelling) {
    return decodeTask(taskWith(spelling, "0")).order;
}

double decodedInstant(const std::string& spelling) {
    return decodeTask(taskWith("0", spelling)).createdAt.seconds;
}

/// How the instant of a note is written.
std::string written(double seconds) {
    std::string json;
    encode(DailyNote("", "", {seconds}), json);
    const std::string before = R"({"id":"","text":"","updatedAt":)";
    EXPECT_TRUE(json.starts_with(before)) << json;
    return json.substr(before.size(), json.size() - before.size() - 1);
}

} // namespace

TEST(NumberCoding, WholeNumbersBelowTwoToThe53AreWrittenWithoutFraction) {
    const std::vector<std::pair<double, std::string>> samples{
        {0, "0"},
        {86400, "86400"},
        {-5, "-5"},
        {1e15, "1000000000000000"},
        {9007199254740991, "9007199254740991"},
        {-9007199254740991, "-9007199254740991"},
    };
    for (const auto& [value, text] : samples) EXPECT_EQ(written(value), text);
}

TEST(NumberCoding, MinusZeroIsWrittenAsZero) {
    EXPECT_EQ(written(-0.0), "0");
}

TEST(NumberCoding, EveryOtherNumberIsWrittenInItsShortestFormThatReadsBack) {
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(794321234.56789), "794321234.56789");
    EXPECT_EQ(written(-0.5), "-0.5");
    for (const auto value :
         {0.1, 1e-300, Doubles::denorm_min(), -Doubles::denorm_min(), Doubles::min(), Doubles::max(),
          Doubles::lowest(), 9007199254740992.0, 9007199254740994.0, 1e22, 1.0 / 3, 5e-324})
        EXPECT_EQ(std::bit_cast<std::uint64_t>(decodedInstant(written(value))),
                  std::bit_cast<std::uint64_t>(value))
            << written(value);
}

TEST(NumberCoding, AnInstantIsReadFromEveryNumberOfJSON) {
    EXPECT_EQ(decodedInstant("3"), 3);
    EXPECT_EQ(decodedInstant("-0"), 0);
    EXPECT_EQ(decodedInstant("-2.50"), -2.5);
    EXPECT_EQ(decodedInstant("1E+2"), 100);
    EXPECT_EQ(decodedInstant("25e-1"), 2.5);
    EXPECT_EQ(decodedInstant("1e-300"), 1e-300);
    EXPECT_EQ(decodedInstant("9007199254740993"), 9007199254740992); // the nearest there is
    EXPECT_EQ(decodedInstant("9223372036854775807"), 9223372036854775808.0);
    EXPECT_EQ(decodedInstant("18446744073709551616"), 18446744073709551616.0);
    EXPECT_EQ(decodedInstant("1.7976931348623157e308"), Doubles::max());
    EXPECT_EQ(decodedInstant("4.9406564584124654e-324"), Doubles::denorm_min());
    EXPECT_EQ(decodedInstant("2.2250738585072011e-308"), 2.2250738585072011e-308);
    EXPECT_EQ(decodedInstant("0." + std::string(400, '0') + "1e401"), 1);
}

TEST(NumberCoding, ANumberTooSmallForADoubleIsZero) {
    for (const auto* text : {"1e-400", "-1e-400", "1e-99999999999", "2e-324"})
        EXPECT_EQ(decodedInstant(text), 0) << text;
}

TEST(NumberCoding, ANumberTooLargeForADoubleIsRefused) {
    for (const std::string text : {"1e309", "-1e309", "1e99999999999", "1.7976931348623159e308", "10e308"})
        EXPECT_THROW(decodedInstant(text), JsonError) << text;
    EXPECT_THROW(decodedInstant("1" + std::string(400, '0')), JsonError);
}

TEST(NumberCoding, WhatIsNotANumberOfJSONIsRefused) {
    for (const auto* text :
         {"NaN", "Infinity", "-Infinity", "nan",  "inf",  "+1",    "01",  "-01",
          "1.",  ".5",       "1e",        "1e+",  "0x10", "1_000", "1,5", "--1",
          "-",   "\"1\"",    "true",      "null", "[]",   "{}",    "",    "\"2026-03-07T00:00:00Z\""})
        EXPECT_THROW(decodedInstant(text), JsonError) << text;
}

TEST(NumberCoding, TheLimitsOf64BitsAreExact) {
    for (const auto order : {Integers::min(), Integers::min() + 1, Integers::max() - 1, Integers::max(),
                             std::int64_t(9007199254740993), std::int64_t(-9007199254740993)}) {
        PlannerTask task;
        task.order = order;
        std::string json;
        encode(task, json);
        EXPECT_NE(json.find("\"order\":" + std::to_string(order) + ","), std::string::npos) << json;
        EXPECT_EQ(decodeTask(json).order, order);
    }
}

TEST(NumberCoding, AnIntegerIsReadFromEverySpellingWithoutFraction) {
    const std::vector<std::pair<std::string, std::int64_t>> samples{
        {"3", 3},
        {"3.0", 3},
        {"3e2", 300},
        {"3E+2", 300},
        {"30e-1", 3},
        {"-0", 0},
        {"-0.0", 0},
        {"0e300", 0},
        {"0e-999999999999999999999", 0},
        {"1.50e1", 15},
        {"-1.5e1", -15},
        {"9223372036854775807.0", Integers::max()},
        {"9.223372036854775807e18", Integers::max()},
        {"-9223372036854775808.00", Integers::min()},
        {"9007199254740993.0", 9007199254740993},
        {"1e18", 1'000'000'000'000'000'000},
    };
    for (const auto& [text, value] : samples) EXPECT_EQ(decodedOrder(text), value) << text;
}

TEST(NumberCoding, AnIntegerWithAFractionOrBeyond64BitsIsRefused) {
    for (const auto* text : {"1.5", "0.1", "-2.000000000000000000000000000001", "1e-1", "15e-1", "1e-400",
                             "9223372036854775808", "-9223372036854775809", "9223372036854775808.0", "1e19",
                             "1e300", "18446744073709551615", "\"3\"", "true", "null"})
        EXPECT_THROW(decodedOrder(text), JsonError) << text;
}

TEST(NumberCoding, NaNAndInfinityAreRefusedOnWriting) {
    for (const auto value :
         {Doubles::quiet_NaN(), Doubles::signaling_NaN(), Doubles::infinity(), -Doubles::infinity()}) {
        std::string json;
        PlannerTask task;
        task.createdAt = {value};
        EXPECT_THROW(encode(task, json), JsonError);
        task = {};
        task.completedAt = Instant{value};
        EXPECT_THROW(encode(task, json), JsonError);
        task = {};
        task.reminderAt = Instant{value};
        EXPECT_THROW(encode(task, json), JsonError);
        EXPECT_THROW(encode(DailyNote("", "", {value}), json), JsonError);
        FocusSession session;
        session.target = value;
        EXPECT_THROW(encode(session, json), JsonError);
        session = {};
        session.segments = {{{value}, 0}};
        EXPECT_THROW(encode(session, json), JsonError);
        session.segments = {{{0}, value}};
        EXPECT_THROW(encode(session, json), JsonError);
    }
}

TEST(TextCoding, EscapesOnlyWhatJSONCannotHold) {
    std::string json;
    encode(DailyNote("", std::string("\"\\/\b\f\n\r\t\x01\x1F\x7F\0\u00E9\u2028"sv), {0}), json);
    EXPECT_EQ(json, R"({"id":"","text":"\"\\/\b\f\n\r\t\u0001\u001f)"
                    "\x7F"
                    R"(\u0000)"
                    "\u00E9\u2028"
                    R"(","updatedAt":0})");
}

TEST(TextCoding, ReadsEveryEscape) {
    const auto note = decodeNote(
        R"({"id":"","text":"\"\\\/\b\f\n\r\t\u0041\u00e9\u20AC\ud83d\uDE00\u0000","updatedAt":0})");
    EXPECT_EQ(note.text, "\"\\/\b\f\n\r\tA\u00E9\u20AC\U0001F600\0"sv);
}

TEST(TextCoding, TextThatIsNotUTF8IsRefusedOnWriting) {
    for (const auto* text : {"\x80", "\xC3", "\xED\xA0\x80", "\xF4\x90\x80\x80", "fine until\xFF"}) {
        std::string json;
        EXPECT_THROW(encode(PlannerTask({}, text, {0}, 0), json), JsonError);
        EXPECT_THROW(encode(DailyNote(text, "", {0}), json), JsonError);
        EXPECT_THROW(encode(DailyNote("", text, {0}), json), JsonError);
        FocusSession session;
        session.title = text;
        EXPECT_THROW(encode(session, json), JsonError);
    }
}
