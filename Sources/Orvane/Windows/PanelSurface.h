#pragma once

#include <PlannerCore/PanelGeometry.h>

#include <QObject>

namespace orvane {

/// The panel's window as the window system sees it: above the others, on every workspace, in no list
/// of windows, and without the keyboard unless it is asked to take it. Main thread.
class PanelSurface : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows the window at `frame` (logical pixels of the desktop, y upwards) above all others, without
    /// giving it the keyboard. A shown window moves there at once.
    virtual void show(const planner::Rect& frame) = 0;
    virtual void hide() = 0;

    virtual bool hasKeyboard() const = 0;
    /// Moves the keyboard here and remembers who had it.
    virtual void takeKeyboard() = 0;
    /// Hands the keyboard back to who had it, unless somebody else has taken it meanwhile.
    virtual void giveKeyboardBack() = 0;

    /// Whether a button of the pointer is held, wherever it is.
    virtual bool buttonHeld() const = 0;

    /// From here on `outsidePressed` is emitted for presses that miss the drawn body, or no longer.
    virtual void watchOutside(bool watch) = 0;

signals:
    /// The pointer's left, middle or right button was pressed outside the body. The press reaches
    /// whatever is there all the same.
    void outsidePressed();
};

} // namespace orvane
