#pragma once

namespace orvane {

/// Whether the X server that the environment names answers. To be asked before the application object
/// is made, which ends the program when none does. Any thread.
bool displayReachable();

/// Whether the machine offers a way to draw with its graphics hardware (a DRM render node).
bool hasGraphicsHardware();

} // namespace orvane
