#pragma once

#include <PlannerCore/PanelGeometry.h>

#include <QObject>

#include <optional>

namespace orvane {

/// The Dashboard's window as the coordinator needs it. Main thread.
class DashboardSurface : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows the window in front and gives it the keyboard. When it is made, on first use, it gets its
    /// remembered frame, else the middle of `visible` (logical pixels of the desktop, y upwards).
    virtual void show(std::optional<planner::Rect> visible) = 0;
    virtual void hide() = 0;

    /// On screen and not minimised.
    virtual bool visible() const = 0;
    /// Whether the keyboard is in it.
    virtual bool isKey() const = 0;

signals:
    /// The keyboard came or went, or the window was closed, minimised or shown again.
    void stateChanged();
};

} // namespace orvane
