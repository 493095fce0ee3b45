#pragma once

#include <PlannerCore/PanelGeometry.h>

#include <QList>
#include <QObject>
#include <QRect>
#include <QString>

#include <cstdint>
#include <optional>

namespace orvane {

/// One attached display. Lengths in logical pixels; y grows upwards.
struct Screen {
    /// Names the display across restarts; never 0.
    std::uint32_t id = 0;
    QString name;
    planner::Rect frame;
    /// What docks and bars leave of the frame.
    planner::Rect visible;
    double scale = 1;
    bool builtIn = false;
    /// Height of the notch area at the top; 0 without one.
    double topInset = 0;
    /// What is left of the top edge on both sides of a notch.
    std::optional<planner::Rect> auxiliaryTopLeft;
    std::optional<planner::Rect> auxiliaryTopRight;
};

/// The attached displays. Main thread.
class Screens : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// In the window system's order; empty without a display.
    virtual QList<Screen> list() const = 0;

signals:
    /// A display came, went, moved or changed its size, scale or free room.
    void changed();
};

/// Between the toolkit's rectangles (y downwards from the top of the desktop) and the program's: y is
/// turned round at the desktop's top edge, which is 0 in both.
planner::Rect upwards(const QRect& rect);
QRect downwards(const planner::Rect& rect);

} // namespace orvane
