#include "Platform/Linux/AutostartLoginItem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QString>

#include <stdexcept>

namespace orvane {
namespace {

const QString entryName = QStringLiteral("app.orvane.Orvane.desktop");

QString folder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart");
}

QString entryPath() {
    return folder() + QLatin1Char('/') + entryName;
}

bool installed() {
    return !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entryName).isEmpty();
}

/// Desktops switch an entry off by writing one of these lines into it.
bool switchedOff(QByteArray line) {
    line = line.replace(' ', "").trimmed().toLower();
    return line == "hidden=true" || line == "x-gnome-autostart-enabled=false";
}

[[noreturn]] void fail(const QFileDevice& file) {
    throw std::runtime_error(file.errorString().toStdString());
}

void write() {
    if (!QDir().mkpath(folder()))
        throw std::runtime_error(QCoreApplication::translate("LoginItem", "The folder %1 cannot be created.")
                                     .arg(folder())
                                     .toStdString());
    QSaveFile file(entryPath());
    if (!file.open(QIODevice::WriteOnly)) fail(file);
    file.write("[Desktop Entry]\n"
               "Type=Application\n"
               "Name=Orvane\n"
               "Exec=orvane\n"
               "Icon=app.orvane.Orvane\n"
               "X-GNOME-Autostart-enabled=true\n");
    if (!file.commit()) fail(file);
}

} // namespace

LoginItemStatus AutostartLoginItem::status() const {
    if (!installed()) return LoginItemStatus::notFound;
    QFile file(entryPath());
    if (!file.open(QIODevice::ReadOnly)) return LoginItemStatus::notRegistered;
    const auto lines = file.readAll().split('\n');
    for (const auto& line : lines)
        if (switchedOff(line)) return LoginItemStatus::requiresApproval;
    return LoginItemStatus::enabled;
}

void AutostartLoginItem::setEnabled(bool enabled) {
    if (!installed())
        throw std::runtime_error(
            QCoreApplication::translate("LoginItem", "Orvane is not installed on this computer.")
                .toStdString());
    if (enabled) return write();
    QFile file(entryPath());
    if (file.exists() && !file.remove()) fail(file);
}

} // namespace orvane
