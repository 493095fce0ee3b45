#include "Windows/PanelMask.h"

#include "Windows/PanelPlacement.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

/// How far a quarter circle of `radius` leaves its box's side free at `distance` rows from its middle,
/// at the row's centre.
int inset(int radius, int distance) {
    const double y = distance + 0.5;
    return int(std::ceil(radius - std::sqrt(std::max(0.0, double(radius) * radius - y * y)) - 0.5));
}

} // namespace

QRegion panelShape(const QRect& body, int corner) {
    const int radius = std::min({corner, body.width() / 2, body.height()});
    QRegion shape(body.adjusted(0, 0, 0, -radius));
    for (int row = 0; row < radius; ++row) {
        const int cut = inset(radius, row);
        shape += QRect(body.left() + cut, body.bottom() + 1 - radius + row, body.width() - 2 * cut, 1);
    }
    // The inverse corner is what a circle around its outer lower point leaves of its box.
    constexpr int shoulder = int(panelShoulder);
    for (int row = 0; row < std::min(shoulder, body.height()); ++row) {
        const int width = inset(shoulder, shoulder - 1 - row);
        shape += QRect(body.left() - width, body.top() + row, body.width() + 2 * width, 1);
    }
    return shape;
}

QRegion roundedShape(const QRect& rect, int corner) {
    const int radius = std::min({corner, rect.width() / 2, rect.height() / 2});
    QRegion shape(rect.adjusted(0, radius, 0, -radius));
    for (int row = 0; row < radius; ++row) {
        const int cut = inset(radius, row);
        const QRect upper(rect.left() + cut, rect.top() + radius - 1 - row, rect.width() - 2 * cut, 1);
        shape += upper;
        shape += QRect(upper.left(), rect.bottom() + 1 - radius + row, upper.width(), 1);
    }
    return shape;
}

} // namespace orvane
