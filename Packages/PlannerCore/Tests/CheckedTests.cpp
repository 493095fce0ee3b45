#include <PlannerCore/Checked.h>

#include <gtest/gtest.h>

#include <limits>

using planner::checkedAdd;
using planner::checkedMultiply;
using planner::checkedSubtract;

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
