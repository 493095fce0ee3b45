#include "Platform/Linux/X11HotKeyRegistrar.h"

#include "Platform/Linux/X11.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <cstdlib>
#include <memory>
#include <utility>
#include <xcb/xcb_keysyms.h>

namespace orvane {
namespace {

// Values of X11/keysymdef.h.
constexpr xcb_keysym_t keysymN = 0x006e;
constexpr xcb_keysym_t keysymNumLock = 0xff7f;
constexpr xcb_keysym_t keysymAltLeft = 0xffe9;
/// Where "n" stands on the Latin keyboard (AB06), for layouts that have no "n" in any group.
constexpr xcb_keycode_t physicalN = 57;

using Symbols = std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)>;

xcb_keycode_t keycodeOf(xcb_key_symbols_t* symbols, xcb_keysym_t keysym) {
    const std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
        xcb_key_symbols_get_keycode(symbols, keysym), &std::free);
    return codes && codes.get()[0] != XCB_NO_SYMBOL ? codes.get()[0] : xcb_keycode_t(0);
}

/// The modifier bit that a key is bound to; 0 for none.
std::uint16_t modifierOf(xcb_key_symbols_t* symbols, xcb_keysym_t keysym) {
    const auto wanted = keycodeOf(symbols, keysym);
    const auto cookie = xcb_get_modifier_mapping(x11::connection());
    const std::unique_ptr<xcb_get_modifier_mapping_reply_t, decltype(&std::free)> reply(
        xcb_get_modifier_mapping_reply(x11::connection(), cookie, nullptr), &std::free);
    if (!reply || wanted == 0) return 0;
    const auto* codes = xcb_get_modifier_mapping_keycodes(reply.get());
    const int perModifier = reply->keycodes_per_modifier;
    for (int index = 0; index < 8 * perModifier; ++index)
        if (codes[index] == wanted) return std::uint16_t(1 << (index / perModifier));
    return 0;
}

} // namespace

X11HotKeyRegistrar::~X11HotKeyRegistrar() {
    unregisterHotKey();
}

bool X11HotKeyRegistrar::available() const {
    return x11::connection() != nullptr;
}

std::int32_t X11HotKeyRegistrar::registerHotKey(std::function<void()> pressed) {
    const auto status = grab();
    if (status != 0) {
        release();
        return status;
    }
    pressed_ = std::move(pressed);
    qApp->installNativeEventFilter(this);
    return 0;
}

void X11HotKeyRegistrar::unregisterHotKey() {
    if (!pressed_) return;
    pressed_ = nullptr;
    qApp->removeNativeEventFilter(this);
    // At the end of the program the connection may be gone, and the grab with it.
    if (x11::connection()) release();
}

std::int32_t X11HotKeyRegistrar::grab() {
    auto* connection = x11::connection();
    const Symbols symbols(xcb_key_symbols_alloc(connection), &xcb_key_symbols_free);
    keycode_ = keycodeOf(symbols.get(), keysymN);
    if (keycode_ == 0) keycode_ = physicalN;
    alt_ = modifierOf(symbols.get(), keysymAltLeft);
    if (alt_ == 0) alt_ = XCB_MOD_MASK_1;
    locks_[0] = XCB_MOD_MASK_LOCK;
    locks_[1] = modifierOf(symbols.get(), keysymNumLock);

    std::int32_t status = 0;
    for (int combination = 0; combination < 4; ++combination) {
        const auto locks = (combination & 1 ? locks_[0] : 0) | (combination & 2 ? locks_[1] : 0);
        const auto cookie = xcb_grab_key_checked(connection, 0, x11::root(), std::uint16_t(alt_ | locks),
                                                 keycode_, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        if (auto* error = xcb_request_check(connection, cookie)) {
            status = error->error_code;
            std::free(error);
        }
    }
    return status;
}

void X11HotKeyRegistrar::release() {
    for (int combination = 0; combination < 4; ++combination) {
        const auto locks = (combination & 1 ? locks_[0] : 0) | (combination & 2 ? locks_[1] : 0);
        xcb_ungrab_key(x11::connection(), keycode_, x11::root(), std::uint16_t(alt_ | locks));
    }
    xcb_flush(x11::connection());
}

bool X11HotKeyRegistrar::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const auto kind = event->response_type & ~0x80;
    if (kind == XCB_MAPPING_NOTIFY) {
        release();
        grab();
    } else if (kind == XCB_KEY_PRESS) {
        const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event);
        // The low byte holds the modifiers; above it are the pointer's buttons and the layout's group.
        const auto modifiers = press->state & 0xff & ~(locks_[0] | locks_[1]);
        if (press->event == x11::root() && press->detail == keycode_ && modifiers == alt_)
            QMetaObject::invokeMethod(
                &home_,
                [this] {
                    if (pressed_) pressed_();
                },
                Qt::QueuedConnection);
    }
    return false;
}

} // namespace orvane
