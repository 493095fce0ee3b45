#pragma once

#include "Platform/SystemEvents.h"

namespace orvane::test {

/// A desktop whose settings the test changes. The other events are this object's own signals.
class FakeSystemEvents : public SystemEvents {
    Q_OBJECT

public:
    using SystemEvents::SystemEvents;

    bool reduceMotion() const override { return reduceMotion_; }
    bool prefersDark() const override { return prefersDark_; }

    void setReduceMotion(bool reduceMotion) {
        if (reduceMotion == reduceMotion_) return;
        reduceMotion_ = reduceMotion;
        emit reduceMotionChanged();
    }
    void setPrefersDark(bool prefersDark) {
        if (prefersDark == prefersDark_) return;
        prefersDark_ = prefersDark;
        emit prefersDarkChanged();
    }

private:
    bool reduceMotion_ = false;
    bool prefersDark_ = false;
};

} // namespace orvane::test
