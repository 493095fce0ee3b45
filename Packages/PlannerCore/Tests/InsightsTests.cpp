#include <PlannerCore/Insights.h>
#include <PlannerCore/PlannerDates.h>

#include "Generators.h"
#include "Property.h"
#include "TestScale.h"
#include "Times.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <map>

using namespace planner;
using planner::test::counterexample;
using planner::test::fullSize;
using planner::test::utc;

namespace {

const Calendar& berlin() {
    static const Calendar calendar("Europe/Berlin");
    return calendar;
}

PlannerTask completed(const char* title, Instant at) {
    PlannerTask task(Uuid::random(), title, at - 60, 0);
    task.completedAt = at;
    return task;
}

FocusSession session(Instant createdAt, std::vector<FocusSegment> segments) {
    FocusSession session(Uuid::random(), "Write the letter", FocusMode::stopwatch, 1500, createdAt);
    session.status = FocusStatus::finished;
    session.segments = std::move(segments);
    return session;
}

std::vector<std::string> dayNames(const insights::Week& week, const Calendar& calendar) {
    std::vector<std::string> names;
    for (const auto& focus : week.days) names.push_back(dates::dayID(focus.day.start, calendar));
    return names;
}

std::vector<double> seconds(const insights::Week& week) {
    std::vector<double> all;
    for (const auto& focus : week.days) all.push_back(focus.seconds);
    return all;
}

} // namespace

TEST(Week, HasSevenDaysWithTodayLast) {
    const auto week = insights::week({}, utc(2026, 3, 10, 12), berlin());
    EXPECT_EQ(dayNames(week, berlin()),
              (std::vector<std::string>{"2026-03-04", "2026-03-05", "2026-03-06", "2026-03-07", "2026-03-08",
                                        "2026-03-09", "2026-03-10"}));
    EXPECT_EQ(week.tasksCompleted, 0u);
    EXPECT_EQ(week.focusMinutes, 0);
    EXPECT_EQ(week.daysWithFocus, 0u);
}

TEST(Week, ItsDaysFollowEachOtherAcrossAChangeOfTheClocks) {
    const auto week = insights::week({}, utc(2026, 3, 31, 12), berlin());
    ASSERT_EQ(week.days.size(), 7u);
    for (std::size_t index = 1; index < 7; ++index)
        EXPECT_EQ(week.days[index - 1].day.end, week.days[index].day.start);
    EXPECT_EQ(week.days[4].day.end - week.days[4].day.start, 23 * 3600);
}

TEST(Week, AFocusSegmentAcrossMidnightGivesEachDayItsShare) {
    PlannerSnapshot planner;
    // From 23:50 to 00:20 in Berlin.
    planner.sessions = {session(utc(2026, 3, 9, 22, 50), {{utc(2026, 3, 9, 22, 50), 1800}})};
    const auto week = insights::week(planner, utc(2026, 3, 10, 12), berlin());
    EXPECT_EQ(seconds(week), (std::vector<double>{0, 0, 0, 0, 0, 600, 1200}));
    EXPECT_EQ(week.focusMinutes, 30);
    EXPECT_EQ(week.daysWithFocus, 2u);
}

TEST(Week, FocusBeforeAndAfterItIsLeftOut) {
    PlannerSnapshot planner;
    const auto first = *berlin().startOfDay(utc(2026, 3, 4, 12));
    const auto tomorrow = *berlin().startOfDay(utc(2026, 3, 11, 12));
    planner.sessions = {session(first, {{first - 100, 100}, {first - 100, 160}, {tomorrow, 100}}),
                        session(tomorrow, {{tomorrow - 60, 1000}})};
    const auto week = insights::week(planner, utc(2026, 3, 10, 12), berlin());
    EXPECT_EQ(seconds(week), (std::vector<double>{60, 0, 0, 0, 0, 0, 60}));
}

TEST(Week, MinutesAreCutOffOnlyOnceTheyAreAddedUp) {
    PlannerSnapshot planner;
    for (unsigned day = 4; day <= 10; ++day)
        planner.sessions.push_back(session(utc(2026, 3, day, 12), {{utc(2026, 3, day, 12), 59}}));
    EXPECT_EQ(insights::week(planner, utc(2026, 3, 10, 13), berlin()).focusMinutes, 6);
}

TEST(Week, CountsTasksFromTheFirstMomentOnWithoutAnUpperBound) {
    const auto first = *berlin().startOfDay(utc(2026, 3, 4, 12));
    PlannerSnapshot planner;
    planner.tasks = {completed("A moment too early", first - 0.001), completed("At the first moment", first),
                     completed("Next year", utc(2027, 1, 1)), PlannerTask(Uuid::random(), "Open", first, 0)};
    EXPECT_EQ(insights::week(planner, utc(2026, 3, 10, 12), berlin()).tasksCompleted, 2u);
}

TEST(Week, ADateThatTheZoneSkippedIsMissing) {
    const Calendar apia("Pacific/Apia");
    PlannerSnapshot planner;
    planner.sessions = {session(utc(2011, 12, 30, 9), {{utc(2011, 12, 30, 9), 7200}})};
    const auto week = insights::week(planner, utc(2012, 1, 1, 12), apia);
    EXPECT_EQ(dayNames(week, apia), (std::vector<std::string>{"2011-12-27", "2011-12-28", "2011-12-29",
                                                              "2011-12-31", "2012-01-01", "2012-01-02"}));
    EXPECT_EQ(seconds(week), (std::vector<double>{0, 0, 3600, 3600, 0, 0}));
    EXPECT_EQ(week.focusMinutes, 120);
}

TEST(Week, WithoutAnyDayNothingIsCounted) {
    PlannerSnapshot planner;
    planner.tasks = {completed("Long ago", Instant{-1e15}), completed("Long after", Instant{1e15})};
    planner.sessions = {session(Instant{0}, {{Instant{-1e12}, 2e12}})};
    for (const auto now : {1e15, -1e15, std::nan("")})
        EXPECT_EQ(insights::week(planner, Instant{now}, berlin()), insights::Week()) << now;
}

TEST(Week, ASegmentFarLongerThanTheWeekFillsItsDays) {
    PlannerSnapshot planner;
    planner.sessions = {session(
        Instant{0}, {{Instant{0}, std::numeric_limits<double>::infinity()}, {Instant{-1e300}, 1e300}})};
    const auto week = insights::week(planner, utc(2026, 7, 10), berlin());
    EXPECT_EQ(seconds(week), std::vector<double>(7, 86400));
    EXPECT_EQ(week.focusMinutes, 7 * 24 * 60);
}

TEST(DayOf, IsAsLongAsTheClocksMakeIt) {
    const auto length = [](Instant instant, const Calendar& calendar) {
        const auto day = insights::dayOf(instant, calendar);
        return day ? day->end - day->start : -1;
    };
    EXPECT_EQ(length(utc(2026, 3, 29, 12), berlin()), 23 * 3600);
    EXPECT_EQ(length(utc(2026, 10, 25, 12), berlin()), 25 * 3600);
    // The clocks of Santiago skip midnight.
    const Calendar santiago("America/Santiago");
    EXPECT_EQ(length(utc(2025, 9, 7, 12), santiago), 23 * 3600);
    EXPECT_EQ(dates::dayID(insights::dayOf(utc(2025, 9, 7, 12), santiago)->start, santiago), "2025-09-07");
}

TEST(DayOf, ADateThatTheZoneSkippedCannotBeFormed) {
    const Calendar apia("Pacific/Apia");
    EXPECT_FALSE(insights::dayOf(utc(2012, 1, 1, 12), apia, -3));
    EXPECT_EQ(insights::dayOf(utc(2012, 1, 1, 12), apia, -4)->end,
              insights::dayOf(utc(2012, 1, 1, 12), apia, -2)->start);
}

TEST(CompletedOn, HoldsTheDaysTasksInTheOrderOfTheirCompletion) {
    const auto day = *insights::dayOf(utc(2026, 3, 10, 12), berlin());
    const RecordList<PlannerTask> tasks{completed("Last", day.end - 0.5),
                                        completed("Too late", day.end),
                                        completed("First", day.start),
                                        completed("Too early", day.start - 0.5),
                                        PlannerTask(Uuid::random(), "Open", day.start, 0),
                                        completed("As late as the last", day.end - 0.5)};
    EXPECT_EQ(insights::completedOn(day, tasks), (std::vector<std::size_t>{2, 0, 5}));
}

TEST(SessionsOn, HoldsThoseBegunOnTheDayAndThoseWithFocusOnIt) {
    const auto day = *insights::dayOf(utc(2026, 3, 10, 12), berlin());
    const RecordList<FocusSession> sessions{
        session(day.start - 600, {{day.start - 600, 719}}), // ends 119 seconds after midnight
        session(day.start - 600, {{day.start - 600, 600}}), // ends at midnight
        session(day.start, {}),                             // begun, and nothing counted yet
        session(day.end - 60, {{day.end - 60, 3600}}),      // goes on tomorrow
        session(day.end, {{day.end, 60}}),
    };
    EXPECT_EQ(insights::sessionsOn(day, sessions),
              (std::vector<insights::SessionOfDay>{{0, 1}, {2, 0}, {3, 1}}));
}

TEST(NoteOn, FindsTheDaysNoteUnlessItIsBlank) {
    const RecordList<DailyNote> notes{{"2026-03-09", " \n\t", Instant{0}}, {"2026-03-10", "Tea", Instant{0}}};
    EXPECT_EQ(insights::noteOn("2026-03-10", notes), std::optional<std::size_t>(1));
    EXPECT_EQ(insights::noteOn("2026-03-09", notes), std::nullopt);
    EXPECT_EQ(insights::noteOn("2026-03-11", notes), std::nullopt);
}

namespace {

/// A planner with times around `middle`, some of them exactly on the borders of days.
PlannerSnapshot plannerAround(Instant middle, const Calendar& calendar, bool wholeSeconds) {
    const auto moment = [&] {
        const auto border = calendar.startOfDay(middle, *fullSize(rc::gen::inRange(-9, 4)));
        const auto distance = *rc::gen::oneOf(rc::gen::just(0), fullSize(rc::gen::inRange(-4000, 4000)));
        const auto fraction = wholeSeconds ? 0 : *fullSize(rc::gen::inRange(0, 8)) / 7.0;
        return *border + distance + fraction;
    };
    PlannerSnapshot planner;
    for (int count = *rc::gen::inRange(0, 12); count > 0; --count) {
        PlannerTask task(Uuid::random(), "Task", moment(), 0);
        if (*rc::gen::inRange(0, 3) > 0) task.completedAt = moment();
        planner.tasks.push_back(task);
    }
    for (int count = *rc::gen::inRange(0, 8); count > 0; --count) {
        std::vector<FocusSegment> segments;
        for (int parts = *rc::gen::inRange(0, 4); parts > 0; --parts)
            segments.push_back({moment(), *fullSize(rc::gen::inRange(0, 7200)) / (wholeSeconds ? 1 : 7.0)});
        planner.sessions.push_back(session(moment(), segments));
    }
    return planner;
}

/// Some moment between 1850 and 2150, often close to a change of the zone's clocks.
Instant someMoment(const Calendar& calendar) {
    const auto apia = utc(2011, 12, 30, 10);
    const auto change = utc(2026, 3, 29, 1);
    const auto anywhere = utc(*fullSize(rc::gen::inRange(1850, 2150)), 1, 1) +
                          double(*fullSize(rc::gen::inRange(0, 366 * 86400)));
    const auto near = *rc::gen::element(apia, change, anywhere) +
                      double(*fullSize(rc::gen::inRange(-6 * 86400, 6 * 86400)));
    return *calendar.startOfDay(near) + double(*fullSize(rc::gen::inRange(0, 86400)));
}

Calendar someCalendar() {
    static const auto zones = planner::test::allTimeZones();
    return Calendar(*rc::gen::oneOf(rc::gen::elementOf(zones),
                                    rc::gen::element<std::string>("Pacific/Apia", "America/Santiago",
                                                                  "Europe/Berlin", "Australia/Lord_Howe")));
}

/// What each local day's name got of the segments, second by second.
std::map<std::string, double> focusByName(const RecordList<FocusSession>& sessions,
                                          const Calendar& calendar) {
    std::map<std::string, double> seconds;
    for (const auto& session : sessions)
        for (const auto& segment : session.segments)
            for (double second = 0; second < segment.duration; ++second)
                ++seconds[dates::dayID(segment.start + second, calendar)];
    return seconds;
}

} // namespace

TEST(InsightsProperty, EverySecondCountsOnTheDayThatNamesIt) {
    const auto failure = counterexample(scaled(150), [] {
        const auto calendar = someCalendar();
        const auto now = someMoment(calendar);
        const auto planner = plannerAround(now, calendar, true);
        auto named = focusByName(planner.sessions, calendar);
        const auto week = insights::week(planner, now, calendar);
        RC_ASSERT(dates::dayID(week.days.back().day.start, calendar) == dates::dayID(now, calendar));
        double sum = 0;
        std::size_t withFocus = 0;
        for (const auto& [day, seconds] : week.days) {
            const auto name = dates::dayID(day.start, calendar);
            if (seconds != named[name]) RC_FAIL(calendar.timeZone() + " " + name);
            sum += named[name];
            withFocus += named[name] > 0 ? 1 : 0;
        }
        RC_ASSERT(week.focusMinutes == std::int64_t(sum / 60));
        RC_ASSERT(week.daysWithFocus == withFocus);
    });
    EXPECT_EQ(failure, "");
}

TEST(InsightsProperty, EveryDaysSecondsAreThoseOfFocusSecondsBitForBit) {
    const auto failure = counterexample(scaled(1000), [] {
        const auto calendar = someCalendar();
        const auto now = someMoment(calendar);
        const auto planner = plannerAround(now, calendar, false);
        for (const auto& [day, seconds] : insights::week(planner, now, calendar).days) {
            const auto reference = dates::focusSeconds(day.start, planner.sessions, calendar);
            RC_ASSERT(std::bit_cast<std::uint64_t>(seconds) == std::bit_cast<std::uint64_t>(reference));
        }
    });
    EXPECT_EQ(failure, "");
}

TEST(InsightsProperty, CountingOnlyWhatChangedGivesTheSameCount) {
    const auto failure = counterexample(scaled(200), [] {
        const auto now = utc(2026, 3, 10, 12);
        auto planner = plannerAround(now, berlin(), true);
        // Several chunks, some of which stay shared.
        const auto few = planner.tasks;
        for (int copies = *rc::gen::inRange(0, 120); copies > 0; --copies)
            for (const auto& task : few) planner.tasks.push_back(task);
        auto week = insights::week(planner, now, berlin());
        const auto before = planner.tasks;
        for (int edits = *rc::gen::inRange(0, 8); edits > 0 && !planner.tasks.empty(); --edits) {
            const auto at = *fullSize(rc::gen::inRange<std::size_t>(0, planner.tasks.size()));
            auto task = planner.tasks[at];
            task.completedAt = task.completedAt ? std::nullopt : std::optional(now);
            switch (*rc::gen::inRange(0, 4)) {
            case 0:
                planner.tasks.erase(at);
                break;
            case 1:
                planner.tasks.insert(at, task);
                break;
            case 2:
                planner.tasks.push_back(task);
                break;
            default:
                planner.tasks.replace(at, task);
            }
        }
        insights::recount(week, before, planner.tasks);
        RC_ASSERT(week == insights::week(planner, now, berlin()));
    });
    EXPECT_EQ(failure, "");
}

TEST(InsightsProperty, ADayHoldsWhatItsNameIsOn) {
    const auto failure = counterexample(scaled(150), [] {
        const auto calendar = someCalendar();
        const auto now = someMoment(calendar);
        const auto planner = plannerAround(now, calendar, true);
        const auto week = insights::week(planner, now, calendar);
        const auto firstName = dates::dayID(week.days.front().day.start, calendar);
        const auto completedInWeek =
            std::count_if(planner.tasks.begin(), planner.tasks.end(), [&](auto& task) {
                return task.completedAt && dates::dayID(*task.completedAt, calendar) >= firstName;
            });
        RC_ASSERT(week.tasksCompleted == std::size_t(completedInWeek));
        std::vector<std::map<std::string, double>> focus;
        for (const auto& one : planner.sessions) focus.push_back(focusByName({one}, calendar));
        for (int offset = -8; offset <= 2; ++offset) {
            const auto day = insights::dayOf(now, calendar, offset);
            if (!day) continue;
            const auto name = dates::dayID(day->start, calendar);
            std::vector<std::pair<Instant, std::size_t>> tasks;
            for (std::size_t at = 0; at < planner.tasks.size(); ++at)
                if (const auto done = planner.tasks[at].completedAt)
                    if (dates::dayID(*done, calendar) == name) tasks.emplace_back(*done, at);
            std::sort(tasks.begin(), tasks.end());
            std::vector<std::size_t> positions;
            for (const auto& task : tasks) positions.push_back(task.second);
            RC_ASSERT(insights::completedOn(*day, planner.tasks) == positions);

            std::vector<insights::SessionOfDay> sessions;
            for (std::size_t at = 0; at < planner.sessions.size(); ++at) {
                const auto& one = planner.sessions[at];
                const auto seconds = focus[at][name];
                if (seconds > 0 || dates::dayID(one.createdAt, calendar) == name)
                    sessions.push_back({at, std::int64_t(seconds / 60)});
            }
            RC_ASSERT(insights::sessionsOn(*day, planner.sessions) == sessions);
        }
    });
    EXPECT_EQ(failure, "");
}
