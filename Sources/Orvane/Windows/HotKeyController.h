#pragma once

#include <cstdint>
#include <functional>

namespace orvane {

class HotKeyRegistrar;

/// The program's one key combination for the whole desktop, Option–N. Main thread.
class HotKeyController {
public:
    /// `action` is what a press does. `registrar` must outlive this.
    HotKeyController(HotKeyRegistrar& registrar, std::function<void()> action);
    /// Unregisters.
    ~HotKeyController();
    HotKeyController(const HotKeyController&) = delete;
    HotKeyController& operator=(const HotKeyController&) = delete;

    /// Registers the combination. Returns 0, also where the window system has no such keys and nothing
    /// is registered; otherwise the window system's error number.
    std::int32_t registerKey();
    /// Does nothing when nothing is registered.
    void unregisterKey();

private:
    HotKeyRegistrar& registrar_;
    std::function<void()> action_;
    bool registered_ = false;
};

} // namespace orvane
