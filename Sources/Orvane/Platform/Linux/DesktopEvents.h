#pragma once

#include "Platform/Linux/SignalWatch.h"
#include "Platform/SystemEvents.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>

class QDBusVariant;
class QVariant;

namespace orvane {

/// The desktop portal's settings (org.freedesktop.portal.Settings), read without waiting for the
/// answer; changes of workspace from the X11 root (_NET_CURRENT_DESKTOP); the signals to end.
class DesktopEvents : public SystemEvents, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit DesktopEvents(QObject* parent = nullptr);
    ~DesktopEvents() override;

    bool reduceMotion() const override { return reduceMotion_; }
    bool prefersDark() const override { return prefersDark_; }

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void readSetting(const QString& group, const QString& key);
    void take(const QString& group, const QString& key, QVariant value);

    SignalWatch signals_;
    bool reduceMotion_ = false;
    bool prefersDark_ = false;
    std::uint32_t currentDesktop_ = 0;
};

} // namespace orvane
