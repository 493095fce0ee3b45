#include <PlannerCore/PanelGeometry.h>

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace planner {
void PrintTo(const Rect& rect, std::ostream* out) {
    *out << '(' << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height << ')';
}
} // namespace planner

using planner::Rect;
using planner::panelGeometry::frame;
using planner::panelGeometry::Request;

namespace {

/// A laptop with a notch.
Request laptop() {
    Request request;
    request.screen = {0, 0, 1512, 982};
    request.visible = {0, 0, 1512, 945};
    request.topInset = 37;
    request.notchWidth = 185;
    request.cards = 3;
    request.cardWidth = 300;
    return request;
}

Request expanded(std::int64_t cards, double cardWidth = 300) {
    auto request = laptop();
    request.expanded = true;
    request.cards = cards;
    request.cardWidth = cardWidth;
    return request;
}

} // namespace

TEST(PanelGeometry, TheCollapsedStripHugsTheNotch) {
    EXPECT_EQ(frame(laptop()), Rect(577.5, 941, 357, 41));
}

TEST(PanelGeometry, TheExpandedPanelHangsFromTheTopAndFitsItsCards) {
    EXPECT_EQ(frame(expanded(3)), Rect(278, 365, 956, 617));
}

TEST(PanelGeometry, OneCardIsRaisedToTheLeastWidth) {
    EXPECT_EQ(frame(expanded(1)).width, 650);
}

TEST(PanelGeometry, NoCardsGiveTheWidthOfOneCard) {
    EXPECT_EQ(frame(expanded(0, 700)).width, frame(expanded(1, 700)).width);
    EXPECT_EQ(frame(expanded(0, 700)).width, 732);
    EXPECT_EQ(frame(expanded(-7, 700)).width, 732);
}

TEST(PanelGeometry, TwoCardsOf300NeedLessThanTheLeastWidth) {
    EXPECT_EQ(frame(expanded(2)).width, 650);
    EXPECT_EQ(frame(expanded(2, 303)).width, 650);
    EXPECT_EQ(frame(expanded(2, 304)).width, 652);
}

TEST(PanelGeometry, TooManyCardsTakeWhatTheVisibleFrameLeaves) {
    const auto rect = frame(expanded(40));
    EXPECT_EQ(rect.width, 1512 - 32);
    EXPECT_EQ(rect.x, 16);
}

TEST(PanelGeometry, AVisibleFrameNarrowerThan33PointsGivesWidth1) {
    for (const auto width : {0.0, 10.0, 32.5, 33.0}) {
        auto request = laptop();
        request.visible.width = width;
        EXPECT_EQ(frame(request).width, 1) << width;
    }
    auto request = laptop();
    request.visible.width = 34;
    EXPECT_EQ(frame(request).width, 2);
}

TEST(PanelGeometry, AScreenLowerThan25PointsAboveTheVisibleBottomGivesHeight1) {
    for (const auto height : {0.0, 24.5, 25.0}) {
        auto request = laptop();
        request.screen.height = height;
        const auto rect = frame(request);
        EXPECT_EQ(rect.height, 1) << height;
        EXPECT_EQ(rect.maxY(), height);
    }
    auto request = laptop();
    request.screen.height = 30;
    EXPECT_EQ(frame(request).height, 6);
}

TEST(PanelGeometry, ALowScreenShortensTheExpandedPanelAboveTheDock) {
    auto request = expanded(3);
    request.screen.height = 600;
    request.visible = {0, 70, 1512, 493};
    EXPECT_EQ(frame(request), Rect(278, 94, 956, 506));
}

TEST(PanelGeometry, AScreenAtNegativeXCentresOnItsOwnMiddleAndClampsToItsVisibleEdges) {
    auto request = laptop();
    request.screen = {-1920, 200, 1920, 1080};
    request.visible = {-1920, 200, 1920, 1055};
    EXPECT_EQ(frame(request), Rect(-960 - 178.5, 1280 - 41, 357, 41));

    // A dock that leaves only a part at the right moves the panel off the middle.
    request.visible = {-900, 200, 900, 1055};
    EXPECT_EQ(frame(request).x, -900 + 16);
    // And one that leaves a part at the left moves it the other way.
    request.visible = {-1920, 200, 900, 1055};
    EXPECT_EQ(frame(request).maxX(), -1920 + 900 - 16);
}

TEST(PanelGeometry, WithoutRoomForBothMarginsTheRightOneWins) {
    auto request = laptop();
    request.visible = {700, 0, 20, 945};
    const auto rect = frame(request);
    EXPECT_EQ(rect.width, 1);
    EXPECT_EQ(rect.maxX(), 720 - 16);
}

TEST(PanelGeometry, TheStripOfAScreenWithoutANotchIs200By32) {
    auto request = laptop();
    request.topInset = 0;
    request.notchWidth = 0;
    const auto rect = frame(request);
    EXPECT_EQ(rect.width, 200);
    EXPECT_EQ(rect.height, 32);
}

TEST(PanelGeometry, TheStripIgnoresTheCards) {
    auto request = laptop();
    request.cards = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(frame(request), frame(laptop()));
}

TEST(PanelGeometry, TheMostCardsThereCanBeStillGiveAFrame) {
    EXPECT_EQ(frame(expanded(std::numeric_limits<std::int64_t>::max())).width, 1480);
}

TEST(PanelGeometryDeathTest, TheLeastCardCountOverflows) {
    EXPECT_DEATH(frame(expanded(std::numeric_limits<std::int64_t>::min())), "Integer overflow");
}
