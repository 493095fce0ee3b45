#pragma once

#include "Platform/UserDefaults.h"

#include <QSettings>

namespace orvane {

class Log;

/// An INI file, "Orvane/Orvane.conf" under $XDG_CONFIG_HOME (~/.config without it); each value is
/// written as "key=@ByteArray(...)" in the group "General".
class SettingsUserDefaults : public UserDefaults {
public:
    /// `log` must outlive this.
    explicit SettingsUserDefaults(Log& log);

    std::optional<QByteArray> data(const QString& key) const override;
    void setData(const QString& key, const QByteArray& value) override;

private:
    Log& log_;
    QSettings settings_;
};

} // namespace orvane
