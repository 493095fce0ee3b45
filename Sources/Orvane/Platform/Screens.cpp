#include "Platform/Screens.h"

namespace orvane {

planner::Rect upwards(const QRect& rect) {
    return {double(rect.x()), -double(rect.y()) - rect.height(), double(rect.width()), double(rect.height())};
}

QRect downwards(const planner::Rect& rect) {
    return {qRound(rect.x), qRound(-rect.maxY()), qRound(rect.width), qRound(rect.height)};
}

} // namespace orvane
