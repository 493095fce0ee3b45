#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>

namespace orvane {

/// Presses of the pointer's buttons anywhere on the desktop, told without taking them from anybody: raw
/// events of the X Input Extension, version 2. Wheels do not count.
class OutsidePresses : private QAbstractNativeEventFilter {
public:
    /// `pressed` is given the pointer's place on the root, in device pixels.
    explicit OutsidePresses(std::function<void(int x, int y)> pressed);
    ~OutsidePresses() override;
    OutsidePresses(const OutsidePresses&) = delete;
    OutsidePresses& operator=(const OutsidePresses&) = delete;

    /// Nothing is told, and the program not woken, while it does not watch.
    void watch(bool watch);

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

    std::function<void(int, int)> pressed_;
    std::uint8_t opcode_ = 0;
    bool watching_ = false;
};

} // namespace orvane
