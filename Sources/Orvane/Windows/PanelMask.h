#pragma once

#include <QRect>
#include <QRegion>

namespace orvane {

/// Radius of the strip's lower corners, of the open panel's, and the heights at which they hold;
/// between the two it grows evenly.
inline constexpr int stripCorner = 14;
inline constexpr int panelCorner = 24;

/// The pixels that the panel draws when its body is at `body`: the body with its round lower corners
/// and the inverse corners beside its top. Window coordinates, y downwards; `corner` is the radius of
/// the lower corners. Pure.
QRegion panelShape(const QRect& body, int corner);

/// A rectangle with four round corners. Pure.
QRegion roundedShape(const QRect& rect, int corner);

} // namespace orvane
