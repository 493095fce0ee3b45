#include "Platform/Linux/UnaskedNotificationCenter.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <utility>

namespace orvane {

void UnaskedNotificationCenter::authorization(std::function<void(NotificationAuthorization)> answer) {
    QMetaObject::invokeMethod(
        &home_, [answer = std::move(answer)] { answer(NotificationAuthorization::notDetermined); },
        Qt::QueuedConnection);
}

void UnaskedNotificationCenter::requestAuthorization(std::function<void()> answer) {
    QMetaObject::invokeMethod(&home_, std::move(answer), Qt::QueuedConnection);
}

void UnaskedNotificationCenter::pendingRequests(std::function<void(QList<NotificationRequest>)> answer) {
    QMetaObject::invokeMethod(
        &home_, [answer = std::move(answer)] { answer({}); }, Qt::QueuedConnection);
}

void UnaskedNotificationCenter::removePending(const QStringList&) {}

void UnaskedNotificationCenter::add(const NotificationRequest&,
                                    std::function<void(std::optional<QString>)> answer) {
    QMetaObject::invokeMethod(
        &home_,
        [answer = std::move(answer)] {
            answer(QCoreApplication::translate("NotificationCenter", "Notifications have not been enabled."));
        },
        Qt::QueuedConnection);
}

} // namespace orvane
