#pragma once

struct xcb_connection_t;

namespace orvane {

/// Whether the X server that the environment names answers. To be asked before the application object
/// is made, which ends the program when none does, and kept until then: a server without clients may
/// start over, and refuses connections meanwhile. Any thread.
class DisplayProbe {
public:
    DisplayProbe();
    ~DisplayProbe();
    DisplayProbe(const DisplayProbe&) = delete;
    DisplayProbe& operator=(const DisplayProbe&) = delete;

    bool reachable() const;

private:
    xcb_connection_t* connection_;
};

/// Whether the machine offers a way to draw with its graphics hardware (a DRM render node).
bool hasGraphicsHardware();

} // namespace orvane
