#include "Windows/HotKeyController.h"

#include "Platform/HotKeyRegistrar.h"

#include <utility>

namespace orvane {

HotKeyController::HotKeyController(HotKeyRegistrar& registrar, std::function<void()> action)
    : registrar_(registrar), action_(std::move(action)) {}

HotKeyController::~HotKeyController() {
    unregisterKey();
}

std::int32_t HotKeyController::registerKey() {
    if (!registrar_.available()) return 0;
    const auto status = registrar_.registerHotKey(action_);
    registered_ = status == 0;
    return status;
}

void HotKeyController::unregisterKey() {
    if (!std::exchange(registered_, false)) return;
    registrar_.unregisterHotKey();
}

} // namespace orvane
