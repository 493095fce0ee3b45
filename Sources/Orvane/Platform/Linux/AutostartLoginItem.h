#pragma once

#include "Platform/LoginItem.h"

namespace orvane {

/// The session's autostart folder (freedesktop.org desktop application autostart): the program's
/// desktop entry under $XDG_CONFIG_HOME/autostart. Only an installed program can be registered.
class AutostartLoginItem : public LoginItem {
public:
    LoginItemStatus status() const override;
    void setEnabled(bool enabled) override;
};

} // namespace orvane
