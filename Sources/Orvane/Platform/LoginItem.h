#pragma once

namespace orvane {

enum class LoginItemStatus { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

/// Whether the program starts with the user's session. Main thread.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual LoginItemStatus status() const = 0;

    /// Registers or unregisters. Throws std::runtime_error with a text for the user.
    virtual void setEnabled(bool enabled) = 0;
};

} // namespace orvane
