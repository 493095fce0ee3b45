#include <PlannerCore/Detail/TimeZoneRule.h>

#include "Times.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

using planner::detail::TimeZoneRule;

namespace {

std::int64_t at(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0) {
    return std::int64_t(planner::test::utc(year, month, day, hour, minute, second).seconds +
                        planner::unixEpochOffset);
}

std::int64_t offsetAt(const char* rule, std::int64_t time) {
    return TimeZoneRule::parse(rule)->spanAt(time).offset;
}

} // namespace

TEST(TimeZoneRule, WithoutSummerTimeOneOffsetHoldsForEver) {
    const auto span = TimeZoneRule::parse("<+0545>-5:45")->spanAt(0);
    EXPECT_EQ(span.offset, 20700);
    EXPECT_EQ(span.begin, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(span.end, std::numeric_limits<std::int64_t>::max());
}

TEST(TimeZoneRule, ASpanReachesFromOneChangeToTheNext) {
    const auto rule = *TimeZoneRule::parse("CET-1CEST,M3.5.0,M10.5.0/3");
    const auto summer = rule.spanAt(at(2050, 7, 1));
    EXPECT_EQ(summer.begin, at(2050, 3, 27, 1));
    EXPECT_EQ(summer.end, at(2050, 10, 30, 1));
    EXPECT_EQ(summer.offset, 7200);
    const auto winter = rule.spanAt(summer.end);
    EXPECT_EQ(winter.begin, summer.end);
    EXPECT_EQ(winter.end, at(2051, 3, 26, 1));
    EXPECT_EQ(winter.offset, 3600);
    EXPECT_EQ(rule.spanAt(summer.begin - 1).end, summer.begin);
}

TEST(TimeZoneRule, InTheSouthSummerTimeSpansTheNewYear) {
    const auto span = TimeZoneRule::parse("AEST-10AEDT,M10.1.0,M4.1.0/3")->spanAt(at(2050, 1, 1));
    EXPECT_EQ(span.offset, 11 * 3600);
    EXPECT_EQ(span.begin, at(2049, 10, 2, 16));
    EXPECT_EQ(span.end, at(2050, 4, 2, 16));
}

TEST(TimeZoneRule, SummerTimeMayBeBehindStandardTime) {
    const auto* dublin = "IST-1GMT0,M10.5.0,M3.5.0/1";
    EXPECT_EQ(offsetAt(dublin, at(2050, 1, 1)), 0);
    EXPECT_EQ(offsetAt(dublin, at(2050, 7, 1)), 3600);
}

TEST(TimeZoneRule, HoursMayBeNegativeAndBeyondADay) {
    // An hour before the Sunday begins, in local time.
    const auto* nuuk = "<-02>2<-01>,M3.5.0/-1,M10.5.0/0";
    EXPECT_EQ(offsetAt(nuuk, at(2050, 3, 27, 0, 59, 59)), -7200);
    EXPECT_EQ(offsetAt(nuuk, at(2050, 3, 27, 1)), -3600);
    const auto* gaza = "EET-2EEST,M3.4.4/50,M10.4.4/50";
    EXPECT_EQ(offsetAt(gaza, at(2050, 3, 25, 23, 59, 59)), 7200);
    EXPECT_EQ(offsetAt(gaza, at(2050, 3, 26)), 10800);
}

TEST(TimeZoneRule, AJulianDayNeverCountsTheLeapDayAndAZeroBasedOneDoes) {
    const auto* julian = "AAA0BBB,J60/0,J300/0";
    EXPECT_EQ(TimeZoneRule::parse(julian)->spanAt(at(2048, 6, 1)).begin, at(2048, 3, 1));
    EXPECT_EQ(TimeZoneRule::parse(julian)->spanAt(at(2049, 6, 1)).begin, at(2049, 3, 1));
    const auto* zeroBased = "AAA0BBB,59/0,300/0";
    EXPECT_EQ(TimeZoneRule::parse(zeroBased)->spanAt(at(2048, 6, 1)).begin, at(2048, 2, 29));
    EXPECT_EQ(TimeZoneRule::parse(zeroBased)->spanAt(at(2049, 6, 1)).begin, at(2049, 3, 1));
}

TEST(TimeZoneRule, SummerTimeAllTheYearNeverEnds) {
    const auto rule = *TimeZoneRule::parse("XXX3EDT4,0/0,J365/23");
    for (const auto time :
         {at(2050, 1, 1, 3, 59, 59), at(2050, 1, 1, 4), at(2050, 7, 1), at(2050, 12, 31, 23)})
        EXPECT_EQ(rule.spanAt(time).offset, -4 * 3600);
}

TEST(TimeZoneRule, RefusesWhatIsNoRule) {
    for (const auto* text : {"",
                             "C",
                             "CE-1",
                             "CET",
                             "CET-",
                             "CET-1x",
                             "<CET-1",
                             "<>1",
                             "CET-200",
                             "CET-1:60",
                             "CET1:2:3:4",
                             "CET-1CEST",
                             "CET-1CEST,",
                             "CET-1CEST,M3.5.0",
                             "CET-1CEST,M3.5.0,",
                             "CET-1CEST,M13.5.0,M10.5.0",
                             "CET-1CEST,M3.6.0,M10.5.0",
                             "CET-1CEST,M3.5.7,M10.5.0",
                             "CET-1CEST,M3.5,M10.5.0",
                             "CET-1CEST,J0,J300",
                             "CET-1CEST,366,300",
                             "CET-1CEST,M3.5.0/168,M10.5.0",
                             "CET-1CEST,M3.5.0,M10.5.0 ",
                             "CET--1",
                             "CET-1CEST,M-3.5.0,M10.5.0"})
        EXPECT_FALSE(TimeZoneRule::parse(text)) << text;
}
