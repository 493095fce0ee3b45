#pragma once

#include "Platform/Linux/OutsidePresses.h"
#include "Windows/PanelSurface.h"

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QTimer>

#include <cstdint>
#include <vector>
#include <xcb/xcb.h>

class QQuickItem;
class QQuickWindow;

namespace orvane {

class PanelState;

/// The panel under X11: a managed window of the type "dock", on every workspace and while it is open
/// above all others (Extended Window Manager Hints), cut to the drawn body (X Shape Extension). It works
/// without a window manager, too.
class X11PanelSurface : public PanelSurface, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Makes `window`'s X11 side and leaves it hidden. `state` says where the body is drawn. Both must
    /// outlive this.
    X11PanelSurface(QQuickWindow& window, const PanelState& state);
    ~X11PanelSurface() override;

    void show(const planner::Rect& frame) override;
    void hide() override;
    bool hasKeyboard() const override;
    void takeKeyboard() override;
    void giveKeyboardBack() override;
    bool buttonHeld() const override;
    void watchOutside(bool watch) override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

    void create();
    void announceStates();
    void setAbove(bool above);
    void updateMask();
    void readCompositor();
    void raiseSoon();
    void raise();
    bool onTop() const;
    void rememberFocus();
    void restoreFocus();
    void outsidePress(int x, int y);

    QQuickWindow& window_;
    const PanelState& state_;
    OutsidePresses presses_;
    QRegion shape_;
    QRegion input_;
    bool composited_ = false;
    /// Whether the window manager keeps the window above all others. Not while it is the strip: some put
    /// that over a full-screen window, too.
    bool above_ = false;
    xcb_atom_t clientList_ = 0;
    xcb_atom_t stacking_ = 0;
    xcb_atom_t manager_ = 0;
    xcb_atom_t compositorSelection_ = 0;
    QElapsedTimer lastRaise_;
    QTimer raiseTimer_;
    /// Who had the keyboard before us; 0 while we do not have it.
    xcb_window_t focusBefore_ = 0;
    /// Set while the keyboard is given back because of a press outside.
    bool pressedOutside_ = false;
    QTimer focusTimer_;
    /// The item with the view's focus when a button went down in the window.
    QPointer<QQuickItem> focusAtPress_;
};

} // namespace orvane
