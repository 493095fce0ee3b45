#pragma once

#include "Platform/LoginItem.h"

#include <QList>

#include <optional>
#include <stdexcept>
#include <string>

namespace orvane::test {

/// A login item whose answers the test sets.
class FakeLoginItem : public LoginItem {
public:
    LoginItemStatus status() const override { return current; }

    void setEnabled(bool enabled) override {
        requests.append(enabled);
        if (failure) throw std::runtime_error(*failure);
        current = enabled ? LoginItemStatus::enabled : LoginItemStatus::notRegistered;
    }

    LoginItemStatus current = LoginItemStatus::notRegistered;
    /// While set, every request fails with this text and changes nothing.
    std::optional<std::string> failure;
    /// What was asked for, oldest first.
    QList<bool> requests;
};

} // namespace orvane::test
