#include "Platform/Linux/DisplayProbe.h"

#include <filesystem>
#include <system_error>
#include <xcb/xcb.h>

namespace orvane {

DisplayProbe::DisplayProbe() : connection_(xcb_connect(nullptr, nullptr)) {}

DisplayProbe::~DisplayProbe() {
    xcb_disconnect(connection_);
}

bool DisplayProbe::reachable() const {
    return xcb_connection_has_error(connection_) == 0;
}

bool hasGraphicsHardware() {
    std::error_code error;
    for (const auto& node : std::filesystem::directory_iterator("/dev/dri", error))
        if (node.path().filename().string().starts_with("renderD")) return true;
    return false;
}

} // namespace orvane
