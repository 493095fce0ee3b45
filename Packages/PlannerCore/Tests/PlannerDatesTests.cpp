#include <PlannerCore/PlannerDates.h>

#include "Property.h"
#include "Times.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using planner::Calendar;
using planner::FocusMode;
using planner::FocusSegment;
using planner::FocusSession;
using planner::FocusStatus;
using planner::Instant;
using planner::RecordList;
using planner::test::counterexample;
using planner::test::fullSize;
using planner::test::utc;
namespace dates = planner::dates;

namespace {

constexpr auto infinity = std::numeric_limits<double>::infinity();

FocusSession session(std::vector<FocusSegment> segments, FocusStatus status = FocusStatus::finished) {
    FocusSession session(planner::Uuid::random(), "Write the letter", FocusMode::stopwatch, 1500, Instant{0});
    session.status = status;
    session.segments = std::move(segments);
    return session;
}

} // namespace

TEST(DayID, NamesTheLocalDay) {
    const auto instant = utc(2026, 3, 7, 23, 30);
    EXPECT_EQ(dates::dayID(instant, Calendar("UTC")), "2026-03-07");
    EXPECT_EQ(dates::dayID(instant, Calendar("Europe/Berlin")), "2026-03-08");
    EXPECT_EQ(dates::dayID(instant, Calendar("Pacific/Honolulu")), "2026-03-07");
}

TEST(DayID, TheYear987IsPaddedToFourDigits) {
    EXPECT_EQ(dates::dayID(utc(987, 1, 5), Calendar("UTC")), "0987-01-05");
}

TEST(DayID, FarAndNegativeYearsKeepTheirOwnDigits) {
    EXPECT_EQ(dates::dayID(utc(12026, 3, 7), Calendar("UTC")), "12026-03-07");
    EXPECT_EQ(dates::dayID(utc(0, 2, 29), Calendar("UTC")), "0000-02-29");
    EXPECT_EQ(dates::dayID(utc(-44, 3, 15), Calendar("UTC")), "-044-03-15");
}

TEST(DayID, AnInstantOnNoDayHasNoKey) {
    for (const auto seconds : {1e13, -1e13, 1e300, infinity, -infinity, std::nan("")})
        EXPECT_EQ(dates::dayID(Instant{seconds}, Calendar("UTC")), "") << seconds;
}

TEST(ClockText, RoundsUpToWholeSeconds) {
    EXPECT_EQ(dates::clock(0), "00:00");
    EXPECT_EQ(dates::clock(0.1), "00:01");
    EXPECT_EQ(dates::clock(59.2), "01:00");
    EXPECT_EQ(dates::clock(245), "04:05");
    EXPECT_EQ(dates::clock(3599), "59:59");
}

TEST(ClockText, RoundsBeforeItAsksForAnHour) {
    EXPECT_EQ(dates::clock(3599.5), "1:00:00");
}

TEST(ClockText, DoesNotWrapAtADay) {
    EXPECT_EQ(dates::clock(3600), "1:00:00");
    EXPECT_EQ(dates::clock(25 * 3600 + 3 * 60 + 9), "25:03:09");
    EXPECT_EQ(dates::clock(1500 * 3600), "1500:00:00");
}

TEST(ClockText, ANegativeTimeIsNone) {
    EXPECT_EQ(dates::clock(-5), "00:00");
    EXPECT_EQ(dates::clock(-0.0), "00:00");
    EXPECT_EQ(dates::clock(-1e300), "00:00");
}

TEST(ClockText, WhatIsNotFiniteIsADash) {
    EXPECT_EQ(dates::clock(std::nan("")), "—");
    EXPECT_EQ(dates::clock(infinity), "—");
    EXPECT_EQ(dates::clock(-infinity), "—");
}

TEST(ClockText, ATrillionSecondsShowsTheLimit) {
    EXPECT_EQ(dates::clock(1e12), "87660:00:00");
    EXPECT_EQ(dates::clock(315'576'000), "87660:00:00");
    EXPECT_EQ(dates::clock(315'575'999), "87659:59:59");
}

TEST(FocusSeconds, ASegmentAcrossMidnightGivesEachDayItsShare) {
    const Calendar berlin("Europe/Berlin");
    // 23:50 in Berlin on 10 March.
    const RecordList<FocusSession> sessions{session({{utc(2026, 3, 10, 22, 50), 1800}})};
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 10, 12), sessions, berlin), 600);
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 11, 12), sessions, berlin), 1200);
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 12, 12), sessions, berlin), 0);
}

TEST(FocusSeconds, ASegmentThatEndsAsTheDayBeginsAddsNothing) {
    const Calendar berlin("Europe/Berlin");
    const RecordList<FocusSession> sessions{session({{utc(2026, 3, 10, 22), 3600}})};
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 11, 12), sessions, berlin), 0);
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 10, 12), sessions, berlin), 3600);
}

TEST(FocusSeconds, SessionsOfEveryStatusCount) {
    RecordList<FocusSession> sessions;
    for (const auto status : {FocusStatus::running, FocusStatus::paused, FocusStatus::finished})
        sessions.push_back(session({{utc(2026, 3, 10, 8), 100}, {utc(2026, 3, 10, 9), 10}}, status));
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 10, 23), sessions, Calendar("UTC")), 330);
}

TEST(FocusSeconds, WithoutSegmentsThereIsNone) {
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 10), {}, Calendar("UTC")), 0);
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 10), {session({})}, Calendar("UTC")), 0);
}

TEST(FocusSeconds, ADayThatCannotBeFormedHasNone) {
    const RecordList<FocusSession> sessions{session({{Instant{-1e12}, 2e12}})};
    EXPECT_EQ(dates::focusSeconds(Instant{1e13}, sessions, Calendar("UTC")), 0);
    EXPECT_EQ(dates::focusSeconds(Instant{std::nan("")}, sessions, Calendar("UTC")), 0);
    // The last day there is has no next one.
    EXPECT_EQ(dates::focusSeconds(utc(32767, 12, 31, 12), sessions, Calendar("UTC")), 0);
}

TEST(FocusSeconds, DaysAreAsLongAsTheClocksMakeThem) {
    const Calendar berlin("Europe/Berlin");
    const RecordList<FocusSession> always{session({{utc(2000, 1, 1), 1e9}})};
    EXPECT_EQ(dates::focusSeconds(utc(2026, 3, 29, 12), always, berlin), 23 * 3600);
    EXPECT_EQ(dates::focusSeconds(utc(2026, 10, 25, 12), always, berlin), 25 * 3600);
    EXPECT_EQ(dates::focusSeconds(utc(2026, 7, 1, 12), always, berlin), 24 * 3600);
}

// Days neither overlap nor leave anything out, whatever a zone's clocks did in that year: a second is
// counted on exactly one of them.
TEST(FocusSecondsProperty, TheDaysOfAYearAddUpToTheSegmentsInEveryZone) {
    std::vector<Calendar> calendars;
    for (const auto& zone : planner::test::allTimeZones()) calendars.emplace_back(zone);
    const auto failure = counterexample(4, [&] {
        const auto year = *fullSize(rc::gen::inRange(1850, 2150));
        const auto times = *fullSize(rc::gen::container<std::vector<int>>(16, rc::gen::inRange(0, 86400)));
        for (const auto& calendar : calendars) {
            const auto first = *calendar.startOfDay(utc(year, 1, 1, 12));
            std::vector<FocusSegment> segments;
            double total = 0;
            for (std::size_t index = 0; index < times.size(); index += 2) {
                segments.push_back({first + 364.0 * times[index], double(times[index + 1])});
                total += times[index + 1];
            }
            const RecordList<FocusSession> sessions{session({}), session(segments)};
            double sum = 0;
            auto day = first;
            while (day - first < 366 * 86400) {
                sum += dates::focusSeconds(day, sessions, calendar);
                const auto next = *calendar.startOfDay(day, 1);
                RC_ASSERT(next > day);
                day = next;
            }
            if (sum != total) RC_FAIL(calendar.timeZone());
        }
    });
    EXPECT_EQ(failure, "");
}
