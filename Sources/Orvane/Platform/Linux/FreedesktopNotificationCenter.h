#pragma once

#include "Platform/NotificationCenter.h"

#include <QDBusConnection>
#include <QObject>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace orvane {

class UserDefaults;

/// Notifications over org.freedesktop.Notifications, version 1.2 of freedesktop.org's protocol. There is no
/// prompt to answer: being asked is the user's consent, which is kept under "consent.notifications". Requests
/// with a time of their own are refused with a text.
class FreedesktopNotificationCenter : public NotificationCenter {
public:
    /// `defaults` must outlive this. Calls on `bus`; one that is not connected means that nothing can be
    /// shown.
    explicit FreedesktopNotificationCenter(UserDefaults& defaults,
                                           QDBusConnection bus = QDBusConnection::sessionBus());

    /// Not determined before the consent; then authorized while a server runs or the bus can start one,
    /// otherwise denied.
    void authorization(std::function<void(NotificationAuthorization)> answer) override;
    void requestAuthorization(std::function<void()> answer) override;
    void pendingRequests(std::function<void(QList<NotificationRequest>)> answer) override;
    void removePending(const QStringList& identifiers) override;
    void add(const NotificationRequest& request, std::function<void(std::optional<QString>)> answer) override;

private:
    bool consented() const;
    void later(std::function<void()> action);
    void ask(const QDBusMessage& call, std::function<void(const QDBusPendingCallWatcher&)> answer);
    void lookForActivatable(std::function<void(NotificationAuthorization)> answer);
    void notify(const NotificationRequest& request, const QStringList& capabilities,
                std::function<void(std::optional<QString>)> answer);

    UserDefaults& defaults_;
    QDBusConnection bus_;
    /// Answers come through its events, so never inside a call and never after its end.
    QObject home_;
};

} // namespace orvane
