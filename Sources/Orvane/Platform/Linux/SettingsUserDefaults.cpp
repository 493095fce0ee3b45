#include "Platform/Linux/SettingsUserDefaults.h"

#include "Platform/Log.h"

#include <QStandardPaths>
#include <QVariant>

namespace orvane {
namespace {

QString file() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Orvane/Orvane.conf");
}

} // namespace

SettingsUserDefaults::SettingsUserDefaults(Log& log) : log_(log), settings_(file(), QSettings::IniFormat) {}

std::optional<QByteArray> SettingsUserDefaults::data(const QString& key) const {
    const auto value = settings_.value(key);
    if (!value.isValid()) return std::nullopt;
    return value.toByteArray();
}

void SettingsUserDefaults::setData(const QString& key, const QByteArray& value) {
    settings_.setValue(key, value);
    settings_.sync();
    if (settings_.status() != QSettings::NoError)
        log_.error("Settings", "Settings could not be written: ", settings_.fileName().toStdString());
}

} // namespace orvane
