#pragma once

#include "Platform/Screens.h"

#include <PlannerCore/PanelGeometry.h>

#include <QList>
#include <QRectF>

#include <cstdint>
#include <optional>

namespace orvane {

/// Where the panel stands on a display. A plain value; pure functions make it.
struct PanelPlacement {
    /// The window's frame on the desktop, y upwards: the open panel and the shoulders beside it. It is
    /// the same whether the panel is open or not.
    planner::Rect window;
    /// The strip or the open panel in the window's coordinates, y downwards.
    QRectF target;
    double topInset = 0;
    double notchWidth = 0;

    bool operator==(const PanelPlacement&) const = default;
};

/// Width of the inverse corners at both sides of the body, which the window has room for.
inline constexpr double panelShoulder = 12;

/// The display that hosts the panel: the preferred one (0: none is preferred), else the first built-in
/// one, else the first; nothing without displays.
std::optional<Screen> panelScreen(const QList<Screen>& screens, std::uint32_t preferred);

/// The panel with `cards` cards of `cardWidth` on `screen`.
PanelPlacement panelPlacement(const Screen& screen, bool expanded, std::int64_t cards, double cardWidth);

} // namespace orvane
