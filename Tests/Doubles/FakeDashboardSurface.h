#pragma once

#include "Windows/DashboardSurface.h"

namespace orvane::test {

/// A Dashboard that gets the keyboard as soon as it is shown, as from a willing window manager.
class FakeDashboardSurface : public DashboardSurface {
    Q_OBJECT

public:
    using DashboardSurface::DashboardSurface;

    void show(std::optional<planner::Rect> visible) override {
        room = visible;
        ++shows;
        set(true, true);
    }
    void hide() override { set(false, false); }
    bool visible() const override { return visible_; }
    bool isKey() const override { return key_; }

    /// The user goes to another program's window, or closes this one.
    void loseKeyboard() { set(visible_, false); }
    void close() { set(false, false); }

    /// What the last `show` was given.
    std::optional<planner::Rect> room;
    int shows = 0;

private:
    void set(bool visible, bool key) {
        visible_ = visible;
        key_ = key;
        emit stateChanged();
    }

    bool visible_ = false;
    bool key_ = false;
};

} // namespace orvane::test
