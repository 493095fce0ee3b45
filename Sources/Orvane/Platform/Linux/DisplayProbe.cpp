#include "Platform/Linux/DisplayProbe.h"

#include <filesystem>
#include <system_error>
#include <xcb/xcb.h>

namespace orvane {

bool displayReachable() {
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool reachable = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return reachable;
}

bool hasGraphicsHardware() {
    std::error_code error;
    for (const auto& node : std::filesystem::directory_iterator("/dev/dri", error))
        if (node.path().filename().string().starts_with("renderD")) return true;
    return false;
}

} // namespace orvane
