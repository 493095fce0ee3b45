#include "Platform/Linux/OutsidePresses.h"

#include "Platform/Linux/X11.h"

#include <QCoreApplication>

#include <utility>
#include <xcb/xinput.h>

namespace orvane {
namespace {

struct Selection {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    std::uint32_t mask = 0;
};

} // namespace

OutsidePresses::OutsidePresses(std::function<void(int, int)> pressed) : pressed_(std::move(pressed)) {
    const auto* extension = xcb_get_extension_data(x11::connection(), &xcb_input_id);
    if (!extension || !extension->present) return;
    opcode_ = extension->major_opcode;
    qApp->installNativeEventFilter(this);
}

OutsidePresses::~OutsidePresses() = default;

void OutsidePresses::watch(bool watch) {
    if (watch == watching_ || opcode_ == 0) return;
    watching_ = watch;
    Selection selection;
    selection.mask = watch ? std::uint32_t(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS) : 0;
    // The toolkit holds the mask of all devices on this connection; that of the master devices is free.
    xcb_input_xi_select_events(x11::connection(), x11::root(), 1, &selection.head);
    xcb_flush(x11::connection());
}

bool OutsidePresses::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (!watching_ || type != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_ge_generic_event_t*>(message);
    if ((event->response_type & ~0x80) != XCB_GE_GENERIC || event->extension != opcode_ ||
        event->event_type != XCB_INPUT_RAW_BUTTON_PRESS)
        return false;
    const auto button = reinterpret_cast<const xcb_input_raw_button_press_event_t*>(event)->detail;
    const bool wheel = button >= 4 && button <= 7;
    if (wheel) return false;
    if (const auto pointer = x11::pointer()) pressed_(pointer->x, pointer->y);
    return false;
}

} // namespace orvane
