#include <PlannerCore/Calendar.h>

#include "Property.h"
#include "Times.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <ostream>
#include <stdexcept>

namespace planner {
void PrintTo(const CivilDay& day, std::ostream* out) {
    *out << day.year << '-' << day.month << '-' << day.day;
}
void PrintTo(const Instant& instant, std::ostream* out) {
    *out << std::int64_t(instant.seconds + unixEpochOffset) << " s after 1970";
}
} // namespace planner

using planner::Calendar;
using planner::CivilDay;
using planner::Instant;
using planner::test::fullSize;
using planner::test::utc;

namespace {

double hours(const Calendar& calendar, Instant instant) {
    return (*calendar.startOfDay(instant, 1) - *calendar.startOfDay(instant)) / 3600;
}

/// What the C library's own reading of the zone's file says about an instant.
class SystemZone {
public:
    explicit SystemZone(const std::string& name) {
        if (const auto* old = std::getenv("TZ")) old_ = old;
        ::setenv("TZ", (":" + name).c_str(), 1);
        ::tzset();
    }
    ~SystemZone() {
        if (old_)
            ::setenv("TZ", old_->c_str(), 1);
        else
            ::unsetenv("TZ");
        ::tzset();
    }
    SystemZone(const SystemZone&) = delete;
    SystemZone& operator=(const SystemZone&) = delete;

    static CivilDay day(Instant instant) {
        const auto seconds = std::time_t(std::floor(instant.seconds) + planner::unixEpochOffset);
        std::tm parts{};
        ::localtime_r(&seconds, &parts);
        return {parts.tm_year + 1900, unsigned(parts.tm_mon + 1), unsigned(parts.tm_mday)};
    }

private:
    std::optional<std::string> old_;
};

} // namespace

TEST(Calendar, KnowsTheSystemsZonesAndNoOthers) {
    EXPECT_EQ(Calendar("Europe/Berlin").timeZone(), "Europe/Berlin");
    for (const auto* name : {"", "Europe/Atlantis", "../../etc/passwd", "europe/berlin", "UTC+1"})
        EXPECT_THROW(Calendar{name}, std::invalid_argument) << name;
}

TEST(Calendar, TakesTheFirstWeekdayAsAValue) {
    EXPECT_EQ(Calendar("UTC").firstWeekday(), 1u);
    EXPECT_EQ(Calendar("UTC", 0).firstWeekday(), 0u);
    EXPECT_EQ(Calendar("UTC", 6).firstWeekday(), 6u);
    EXPECT_THROW(Calendar("UTC", 7), std::invalid_argument);
}

TEST(Calendar, IsEqualToOneOfTheSameZoneAndWeekday) {
    EXPECT_EQ(Calendar("Asia/Tokyo", 0), Calendar("Asia/Tokyo", 0));
    EXPECT_NE(Calendar("Asia/Tokyo", 0), Calendar("Asia/Tokyo", 1));
    EXPECT_NE(Calendar("Asia/Tokyo"), Calendar("Asia/Seoul"));
}

TEST(Calendar, ADayBeginsAtLocalMidnight) {
    const Calendar kathmandu("Asia/Kathmandu");
    EXPECT_EQ(kathmandu.startOfDay(utc(2026, 3, 7, 12)), utc(2026, 3, 6, 18, 15));
    EXPECT_EQ(kathmandu.startOfDay(utc(2026, 3, 6, 18, 15)), utc(2026, 3, 6, 18, 15));
    EXPECT_EQ(kathmandu.startOfDay(utc(2026, 3, 6, 18, 14, 59.999)), utc(2026, 3, 5, 18, 15));
}

TEST(Calendar, ADayIsFoundFromAnyInstantInIt) {
    const Calendar berlin("Europe/Berlin");
    EXPECT_EQ(berlin.day(utc(2026, 3, 7, 22, 59, 59.999)), (CivilDay{2026, 3, 7}));
    EXPECT_EQ(berlin.day(utc(2026, 3, 7, 23)), (CivilDay{2026, 3, 8}));
}

TEST(Calendar, DaysAreCountedByTheCalendarAndNotByTwentyFourHours) {
    const Calendar berlin("Europe/Berlin");
    EXPECT_EQ(berlin.startOfDay(utc(2026, 3, 28, 23, 30), 1), utc(2026, 3, 29, 22));
    EXPECT_EQ(berlin.startOfDay(utc(2026, 3, 29, 12), -1), utc(2026, 3, 27, 23));
    EXPECT_EQ(berlin.startOfDay(utc(2026, 3, 29, 12), 365), utc(2027, 3, 28, 22));
}

TEST(Calendar, TheDaysOfAClockChangeHave23And25Hours) {
    const Calendar newYork("America/New_York");
    EXPECT_EQ(hours(newYork, utc(2026, 3, 8, 12)), 23);
    EXPECT_EQ(hours(newYork, utc(2026, 11, 1, 12)), 25);
    EXPECT_EQ(hours(newYork, utc(2026, 7, 4, 12)), 24);
    EXPECT_EQ(hours(Calendar("Australia/Lord_Howe"), utc(2026, 4, 5, 6)), 24.5);
}

TEST(Calendar, ADayWhoseMidnightDoesNotExistBeginsWhereTheGapEnds) {
    const Calendar saoPaulo("America/Sao_Paulo");
    EXPECT_EQ(saoPaulo.startOfDay(utc(2018, 11, 4, 15)), utc(2018, 11, 4, 3));
    EXPECT_EQ(saoPaulo.day(utc(2018, 11, 4, 2, 59, 59)), (CivilDay{2018, 11, 3}));
    EXPECT_EQ(saoPaulo.day(utc(2018, 11, 4, 3)), (CivilDay{2018, 11, 4}));
    EXPECT_EQ(hours(saoPaulo, utc(2018, 11, 4, 15)), 23);

    const Calendar cairo("Africa/Cairo");
    EXPECT_EQ(cairo.startOfDay(utc(2024, 4, 26, 12)), utc(2024, 4, 25, 22));
    EXPECT_EQ(hours(cairo, utc(2024, 4, 26, 12)), 23);
}

TEST(Calendar, ADayWhoseMidnightComesTwiceBeginsAtTheFirst) {
    const Calendar havana("America/Havana");
    EXPECT_EQ(havana.startOfDay(utc(2018, 11, 4, 12)), utc(2018, 11, 4, 4));
    EXPECT_EQ(hours(havana, utc(2018, 11, 4, 12)), 25);
}

TEST(Calendar, ADayThatTheZoneSkippedBeginsWhereTheSkipEnds) {
    const Calendar apia("Pacific/Apia");
    const auto skip = utc(2011, 12, 30, 10);
    EXPECT_EQ(apia.day(skip - 1), (CivilDay{2011, 12, 29}));
    EXPECT_EQ(apia.day(skip), (CivilDay{2011, 12, 31}));
    EXPECT_EQ(apia.startOfDay(skip - 1, 1), skip);
    EXPECT_EQ(apia.startOfDay(skip - 1, 2), skip);
    EXPECT_EQ(apia.startOfDay(skip, -1), skip);
    EXPECT_EQ(apia.startOfDay(skip, -2), skip - 24 * 3600);
    EXPECT_EQ(hours(apia, skip - 1), 24);
    EXPECT_EQ(hours(apia, skip), 24);
}

TEST(Calendar, ADayThatTheZoneRepeatedLastsAsLongAsItWas) {
    // The atoll went from the west of the date line to its east within the first minute of October.
    const Calendar kwajalein("Pacific/Kwajalein");
    EXPECT_EQ(kwajalein.startOfDay(utc(1969, 9, 30, 20)), utc(1969, 9, 29, 13));
    EXPECT_EQ(hours(kwajalein, utc(1969, 9, 30, 20)), 47);
}

TEST(Calendar, BeforeStandardTimeTheLocalMeanTimeHolds) {
    // Berlin was 53 minutes and 28 seconds ahead of Greenwich.
    EXPECT_EQ(Calendar("Europe/Berlin").startOfDay(utc(1800, 6, 1, 12)), utc(1800, 5, 31, 23, 6, 32));
}

TEST(Calendar, SummerTimeGoesOnInYearsThatNoTableLists) {
    const Calendar newYork("America/New_York");
    EXPECT_EQ(newYork.startOfDay(utc(2050, 7, 4, 12)), utc(2050, 7, 4, 4));
    EXPECT_EQ(newYork.startOfDay(utc(2050, 1, 4, 12)), utc(2050, 1, 4, 5));
    EXPECT_EQ(hours(newYork, utc(2400, 3, 12, 12)), 23);
    EXPECT_EQ(hours(Calendar("Europe/Dublin"), utc(2050, 10, 30, 12)), 25);
    EXPECT_EQ(hours(Calendar("Australia/Sydney"), utc(2050, 10, 2, 0)), 23);
}

TEST(Calendar, NegativeAndFarYearsHaveDaysToo) {
    const Calendar utcCalendar("UTC");
    EXPECT_EQ(utcCalendar.day(utc(-1, 12, 31, 23)), (CivilDay{-1, 12, 31}));
    EXPECT_EQ(utcCalendar.startOfDay(utc(-1, 12, 31, 23), 1), utc(0, 1, 1));
    EXPECT_EQ(utcCalendar.day(utc(-32767, 1, 1)), (CivilDay{-32767, 1, 1}));
    EXPECT_EQ(utcCalendar.day(utc(32767, 12, 31, 23, 59, 59)), (CivilDay{32767, 12, 31}));
    EXPECT_EQ(Calendar("Europe/Berlin").day(utc(9999, 12, 31, 23)), (CivilDay{10000, 1, 1}));
    EXPECT_EQ(Calendar("Europe/Berlin").startOfDay(utc(32767, 7, 1, 12)), utc(32767, 6, 30, 22));
}

TEST(Calendar, OutsideTheYearsThereIsNoDay) {
    const Calendar berlin("Europe/Berlin");
    for (const auto seconds :
         {utc(32767, 12, 31, 23).seconds, utc(-32767, 1, 1).seconds - 86400, 1e15, -1e15, 1e300, -1e300,
          std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_FALSE(berlin.day({seconds})) << seconds;
        EXPECT_FALSE(berlin.startOfDay({seconds})) << seconds;
        EXPECT_FALSE(berlin.startOfDay({seconds}, 1)) << seconds;
    }
    EXPECT_FALSE(berlin.startOfDay(utc(32767, 12, 31, 12), 1));
    EXPECT_FALSE(berlin.startOfDay(utc(-32767, 1, 1, 12), -1));
    EXPECT_FALSE(berlin.startOfDay(utc(2026, 1, 1), std::numeric_limits<int>::max()));
    EXPECT_FALSE(berlin.startOfDay(utc(2026, 1, 1), std::numeric_limits<int>::min()));
}

// The C library reads the same files by its own means.
RC_GTEST_PROP(CalendarProperty, AgreesWithTheCLibraryInEveryZone, ()) {
    static const auto zones = planner::test::allTimeZones();
    const auto& zone = *rc::gen::elementOf(zones);
    const auto instants = *rc::gen::container<std::vector<std::int64_t>>(
        50, fullSize(rc::gen::inRange<std::int64_t>(-4'000'000'000, 6'000'000'000)));
    const Calendar calendar(zone);
    const SystemZone system(zone);
    RC_LOG() << zone << '\n';
    for (const auto seconds : instants) {
        const Instant instant{double(seconds)};
        RC_LOG() << seconds << '\n';
        const auto today = SystemZone::day(instant);
        RC_ASSERT(calendar.day(instant) == today);
        const auto start = *calendar.startOfDay(instant);
        RC_ASSERT(start <= instant);
        RC_ASSERT(SystemZone::day(start) == today);
        RC_ASSERT(SystemZone::day(start - 1) < today);
        const auto next = *calendar.startOfDay(instant, 1);
        RC_ASSERT(SystemZone::day(next) > today);
        RC_ASSERT(SystemZone::day(next - 1) <= today);
    }
}
