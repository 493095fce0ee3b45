#pragma once

#include <cstdint>

namespace planner {

/// A rectangle in screen points; the origin is at the bottom left and y grows upwards.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double minX() const { return x; }
    double midX() const { return x + width / 2; }
    double maxX() const { return x + width; }
    double minY() const { return y; }
    double maxY() const { return y + height; }

    bool operator==(const Rect&) const = default;
};

namespace panelGeometry {

/// What the panel's place depends on. Lengths are screen points.
struct Request {
    /// The whole frame of the chosen screen.
    Rect screen;
    /// What docks and bars leave of it.
    Rect visible;
    /// Height of the notch or menu bar at the screen's top; 0 without one.
    double topInset = 0;
    /// Width of the notch; 0 without one.
    double notchWidth = 0;
    /// The open workspace, or the collapsed strip.
    bool expanded = false;
    /// How many cards are shown; counts below 1 are laid out as one card.
    std::int64_t cards = 1;
    double cardWidth = 260;
};

/// The panel's frame: centred on the screen's top edge, kept inside the visible frame. Pure; any
/// thread. Expanded, a card count of INT64_MIN overflows and
/// ends the program with a message.
Rect frame(const Request& request);

} // namespace panelGeometry
} // namespace planner
