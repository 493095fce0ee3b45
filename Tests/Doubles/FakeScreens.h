#pragma once

#include "Platform/Screens.h"

#include <utility>

namespace orvane::test {

/// Displays that the test plugs in and pulls out; none to begin with.
class FakeScreens : public Screens {
    Q_OBJECT

public:
    using Screens::Screens;

    QList<Screen> list() const override { return screens_; }

    /// Replaces all displays and announces it.
    void set(QList<Screen> screens) {
        screens_ = std::move(screens);
        emit changed();
    }

    /// A display of 1512 × 982 at the origin with a bar of 37 at its top and no notch.
    static Screen plain(std::uint32_t id, const QString& name) {
        Screen screen;
        screen.id = id;
        screen.name = name;
        screen.frame = {0, 0, 1512, 982};
        screen.visible = {0, 0, 1512, 945};
        return screen;
    }

private:
    QList<Screen> screens_;
};

} // namespace orvane::test
