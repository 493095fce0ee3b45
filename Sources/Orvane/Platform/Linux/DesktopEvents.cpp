#include "Platform/Linux/DesktopEvents.h"

#include "Platform/Linux/X11.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace orvane {
namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString interfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const QString animationsKey = QStringLiteral("enable-animations");

} // namespace

DesktopEvents::DesktopEvents(QObject* parent) : SystemEvents(parent) {
    connect(&signals_, &SignalWatch::quitRequested, this, &SystemEvents::quitRequested);
    if (x11::connection()) {
        currentDesktop_ = x11::atom("_NET_CURRENT_DESKTOP");
        qApp->installNativeEventFilter(this);
    }
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    readSetting(appearanceGroup, colorSchemeKey);
    readSetting(interfaceGroup, animationsKey);
}

DesktopEvents::~DesktopEvents() = default;

void DesktopEvents::readSetting(const QString& group, const QString& key) {
    auto call =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    call << group << key;
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        // Desktops without a portal, or without this setting, keep the defaults.
        if (reply.isValid()) take(group, key, reply.value().variant());
    });
}

void DesktopEvents::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    take(group, key, value.variant());
}

void DesktopEvents::take(const QString& group, const QString& key, QVariant value) {
    // `Read` wraps its answer in a second variant.
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    if (group == appearanceGroup && key == colorSchemeKey) {
        const bool before = std::exchange(prefersDark_, value.toUInt() == 1);
        if (before != prefersDark_) emit prefersDarkChanged();
    } else if (group == interfaceGroup && key == animationsKey) {
        const bool before = std::exchange(reduceMotion_, !value.toBool());
        if (before != reduceMotion_) emit reduceMotionChanged();
    }
}

bool DesktopEvents::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~0x80) != XCB_PROPERTY_NOTIFY) return false;
    const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
    if (change->atom == currentDesktop_ && change->window == x11::root()) emit activeSpaceChanged();
    return false;
}

} // namespace orvane
