#include <PlannerCore/PanelGeometry.h>

#include <PlannerCore/Checked.h>

#include <algorithm>

namespace planner::panelGeometry {
namespace {

constexpr double minimumExpandedWidth = 650;
constexpr double cardGap = 12;
constexpr double expandedPadding = 32;
constexpr double collapsedExtraWidth = 172;
constexpr double minimumCollapsedWidth = 200;
constexpr double sideMargin = 16;
constexpr double expandedBodyHeight = 580;
constexpr double collapsedExtraHeight = 4;
constexpr double minimumCollapsedHeight = 32;
constexpr double bottomReserve = 24;
constexpr double floor = 1;

double wantedWidth(const Request& request) {
    if (!request.expanded) return std::max(request.notchWidth + collapsedExtraWidth, minimumCollapsedWidth);
    const auto cards = std::max<std::int64_t>(request.cards, 1);
    const auto gaps = std::max<std::int64_t>(checkedSubtract(request.cards, 1), 0);
    const auto width = double(cards) * request.cardWidth + double(gaps) * cardGap + expandedPadding;
    return std::max(width, minimumExpandedWidth);
}

double wantedHeight(const Request& request) {
    if (request.expanded) return request.topInset + expandedBodyHeight;
    return std::max(request.topInset + collapsedExtraHeight, minimumCollapsedHeight);
}

} // namespace

Rect frame(const Request& request) {
    const auto& screen = request.screen;
    const auto& visible = request.visible;
    const auto width = std::min(wantedWidth(request), std::max(visible.width - 2 * sideMargin, floor));
    // The panel hangs from the screen's own top, over whatever bar is there, but stays clear of what
    // stands at the bottom.
    const auto room = std::max(screen.maxY() - visible.minY() - bottomReserve, floor);
    const auto height = std::min(wantedHeight(request), room);
    const auto centred = screen.midX() - width / 2;
    // The right margin comes last, so it wins where both cannot be kept.
    const auto x =
        std::min(std::max(centred, visible.minX() + sideMargin), visible.maxX() - sideMargin - width);
    return {x, screen.maxY() - height, width, height};
}

} // namespace planner::panelGeometry
