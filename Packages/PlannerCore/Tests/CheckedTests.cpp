#include <PlannerCore/Checked.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using planner::checkedAdd;
using planner::checkedMultiply;
using planner::checkedSubtract;
using planner::checkedTruncation;

namespace {
constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto most = std::numeric_limits<std::int64_t>::max();
} // namespace

TEST(Checked, GivesExactResultsUpToBothLimits) {
    EXPECT_EQ(checkedAdd(most - 1, 1), most);
    EXPECT_EQ(checkedAdd(least + 1, -1), least);
    EXPECT_EQ(checkedSubtract(least + 1, 1), least);
    EXPECT_EQ(checkedSubtract(-1, most), least);
    EXPECT_EQ(checkedMultiply(most / 60, 60), most / 60 * 60);
    EXPECT_EQ(checkedMultiply(least, 1), least);
}

TEST(CheckedDeathTest, AnOverflowEndsTheProgramNamingTheOperation) {
    EXPECT_DEATH(checkedAdd(most, 1), "Integer overflow: 9223372036854775807 \\+ 1");
    EXPECT_DEATH(checkedSubtract(least, 1), "Integer overflow: -9223372036854775808 - 1");
    EXPECT_DEATH(checkedMultiply(most, 60), "Integer overflow: 9223372036854775807 \\* 60");
    EXPECT_DEATH(checkedMultiply(least, -1), "Integer overflow: -9223372036854775808 \\* -1");
}

TEST(Checked, CutsOffTowardsZeroUpToBothLimits) {
    EXPECT_EQ(checkedTruncation(1.999), 1);
    EXPECT_EQ(checkedTruncation(-1.999), -1);
    EXPECT_EQ(checkedTruncation(-0.0), 0);
    EXPECT_EQ(checkedTruncation(-0x1p63), least);
    EXPECT_EQ(checkedTruncation(std::nextafter(0x1p63, 0.0)), most - 1023);
}

TEST(CheckedDeathTest, ANumberThatIsNo64BitIntegerEndsTheProgram) {
    for (const auto number :
         {0x1p63, std::nextafter(-0x1p63, -0x1p64), std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_DEATH(checkedTruncation(number), "No 64-bit integer: ") << number;
}
