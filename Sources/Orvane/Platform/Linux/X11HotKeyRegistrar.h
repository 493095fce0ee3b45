#pragma once

#include "Platform/HotKeyRegistrar.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>
#include <xcb/xcb.h>

namespace orvane {

/// Alt with the key that gives "n", grabbed on the X11 root whatever the lock keys say, and grabbed
/// again when the keyboard's layout changes.
class X11HotKeyRegistrar : public HotKeyRegistrar, private QAbstractNativeEventFilter {
public:
    X11HotKeyRegistrar() = default;
    ~X11HotKeyRegistrar() override;

    bool available() const override;
    std::int32_t registerHotKey(std::function<void()> pressed) override;
    void unregisterHotKey() override;

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    std::int32_t grab();
    void release();

    std::function<void()> pressed_;
    xcb_keycode_t keycode_ = 0;
    std::uint16_t alt_ = 0;
    /// The modifier bits of Caps Lock and Num Lock, which make no difference.
    std::uint16_t locks_[2] = {0, 0};
    /// Presses are passed on through its events: after the toolkit has noted their time, which the
    /// window manager asks for when the panel takes the keyboard.
    QObject home_;
};

} // namespace orvane
