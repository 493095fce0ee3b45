#pragma once

#include "Platform/HotKeyRegistrar.h"

#include <QtGlobal>

#include <functional>
#include <utility>

namespace orvane::test {

/// A hot key that the test presses.
class FakeHotKeyRegistrar : public HotKeyRegistrar {
public:
    bool available() const override { return present; }
    std::int32_t registerHotKey(std::function<void()> pressed) override {
        if (!present) qFatal("a hot key was registered where there are none");
        ++registrations;
        if (result == 0) pressed_ = std::move(pressed);
        return result;
    }
    void unregisterHotKey() override { pressed_ = nullptr; }

    bool registered() const { return pressed_ != nullptr; }
    /// Presses the key; nothing happens unless it is registered.
    void press() const {
        if (pressed_) pressed_();
    }

    bool present = true;
    /// What the next registrations answer.
    std::int32_t result = 0;
    int registrations = 0;

private:
    std::function<void()> pressed_;
};

} // namespace orvane::test
