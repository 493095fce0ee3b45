#include "Windows/PanelPlacement.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

double notchWidth(const Screen& screen) {
    if (!screen.auxiliaryTopLeft || !screen.auxiliaryTopRight || screen.topInset <= 0) return 0;
    return std::max(screen.auxiliaryTopRight->minX() - screen.auxiliaryTopLeft->maxX(), 0.0);
}

} // namespace

std::optional<Screen> panelScreen(const QList<Screen>& screens, std::uint32_t preferred) {
    if (screens.isEmpty()) return std::nullopt;
    const auto isPreferred = [preferred](const Screen& screen) { return screen.id == preferred; };
    const auto isBuiltIn = [](const Screen& screen) { return screen.builtIn; };
    auto found = screens.end();
    if (preferred != 0) found = std::find_if(screens.begin(), screens.end(), isPreferred);
    if (found == screens.end()) found = std::find_if(screens.begin(), screens.end(), isBuiltIn);
    return found == screens.end() ? screens.front() : *found;
}

PanelPlacement panelPlacement(const Screen& screen, bool expanded, std::int64_t cards, double cardWidth) {
    PanelPlacement result;
    result.topInset = screen.topInset;
    result.notchWidth = notchWidth(screen);
    planner::panelGeometry::Request request{screen.frame, screen.visible, result.topInset, result.notchWidth,
                                            true,         cards,          cardWidth};
    const auto open = planner::panelGeometry::frame(request);
    request.expanded = expanded;
    const auto body = planner::panelGeometry::frame(request);

    // Whole pixels, or the body's edges would be drawn between two.
    const double left = std::floor(open.minX()) - panelShoulder;
    const double right = std::ceil(open.maxX()) + panelShoulder;
    const double bottom = std::floor(open.minY());
    result.window = {left, bottom, right - left, open.maxY() - bottom};
    result.target = {std::round(body.minX() - left), 0, std::round(body.width), std::round(body.height)};
    return result;
}

} // namespace orvane
