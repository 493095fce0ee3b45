#pragma once

#include <cstdint>
#include <functional>

namespace orvane {

/// The one key combination that works from every program, Option–N. Main thread.
class HotKeyRegistrar {
public:
    virtual ~HotKeyRegistrar() = default;

    /// Whether this windowing system has such keys at all; where it has none, nothing is registered.
    virtual bool available() const = 0;

    /// Calls `pressed` on the main thread at each press from now on. Returns 0, or the window system's
    /// error number (10: another program owns the combination) with nothing registered.
    virtual std::int32_t registerHotKey(std::function<void()> pressed) = 0;

    /// Gives the combination back; does nothing when none is registered.
    virtual void unregisterHotKey() = 0;
};

} // namespace orvane
