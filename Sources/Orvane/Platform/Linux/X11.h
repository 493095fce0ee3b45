#pragma once

#include <cstdint>
#include <optional>
#include <vector>
#include <xcb/xcb.h>

/// What the X11 parts share: the toolkit's own connection, and properties by name. Main thread.
namespace orvane::x11 {

/// The toolkit's connection to the X server; null under any other window system.
xcb_connection_t* connection();
/// The first screen's root window. Only with a connection.
xcb_window_t root();
xcb_atom_t atom(const char* name);

/// A window's property as 32-bit items; empty when it has none.
std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type);

/// Where the pointer is on the root, in device pixels, and which buttons and modifiers are held.
struct Pointer {
    int x = 0;
    int y = 0;
    std::uint16_t held = 0;
};
std::optional<Pointer> pointer();

} // namespace orvane::x11
