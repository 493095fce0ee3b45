#pragma once

#include "Windows/PanelSurface.h"

#include <optional>

namespace orvane::test {

/// A panel's window that only remembers what it was told.
class FakePanelSurface : public PanelSurface {
    Q_OBJECT

public:
    using PanelSurface::PanelSurface;

    void show(const planner::Rect& frame) override {
        shownAt = frame;
        ++shows;
    }
    void hide() override { shownAt = std::nullopt; }
    bool hasKeyboard() const override { return keyboard; }
    void takeKeyboard() override { keyboard = true; }
    void giveKeyboardBack() override { keyboard = false; }
    bool buttonHeld() const override { return held; }
    void watchOutside(bool watch) override { watching = watch; }

    /// Presses a button outside, which is told only while somebody watches.
    void pressOutside() {
        if (watching) emit outsidePressed();
    }

    /// Nothing while the window is hidden.
    std::optional<planner::Rect> shownAt;
    int shows = 0;
    bool keyboard = false;
    bool held = false;
    bool watching = false;
};

} // namespace orvane::test
