#include "Platform/Linux/FreedesktopNotificationCenter.h"

#include "Platform/UserDefaults.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMetaObject>
#include <QVariantMap>

#include <utility>

namespace orvane {
namespace {

const auto consentKey = QStringLiteral("consent.notifications");
const auto server = QStringLiteral("org.freedesktop.Notifications");

QDBusMessage serverCall(const QString& method) {
    return QDBusMessage::createMethodCall(server, QStringLiteral("/org/freedesktop/Notifications"), server,
                                          method);
}

QDBusMessage busCall(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

} // namespace

FreedesktopNotificationCenter::FreedesktopNotificationCenter(UserDefaults& defaults, QDBusConnection bus)
    : defaults_(defaults), bus_(std::move(bus)) {}

bool FreedesktopNotificationCenter::consented() const {
    return defaults_.data(consentKey).has_value();
}

void FreedesktopNotificationCenter::later(std::function<void()> action) {
    QMetaObject::invokeMethod(&home_, std::move(action), Qt::QueuedConnection);
}

void FreedesktopNotificationCenter::ask(const QDBusMessage& call,
                                        std::function<void(const QDBusPendingCallWatcher&)> answer) {
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), &home_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [answer = std::move(answer)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         answer(*finished);
                     });
}

void FreedesktopNotificationCenter::authorization(std::function<void(NotificationAuthorization)> answer) {
    const auto give = [this, answer](NotificationAuthorization status) {
        later([answer, status] { answer(status); });
    };
    if (!consented()) return give(NotificationAuthorization::notDetermined);
    if (!bus_.isConnected()) return give(NotificationAuthorization::denied);
    auto call = busCall(QStringLiteral("NameHasOwner"));
    call << server;
    ask(call, [this, answer = std::move(answer)](const QDBusPendingCallWatcher& finished) {
        const QDBusPendingReply<bool> owned = finished;
        if (owned.isValid() && owned.value()) return answer(NotificationAuthorization::authorized);
        lookForActivatable(answer);
    });
}

void FreedesktopNotificationCenter::lookForActivatable(
    std::function<void(NotificationAuthorization)> answer) {
    ask(busCall(QStringLiteral("ListActivatableNames")),
        [answer = std::move(answer)](const QDBusPendingCallWatcher& finished) {
            const QDBusPendingReply<QStringList> names = finished;
            const bool startable = names.isValid() && names.value().contains(server);
            answer(startable ? NotificationAuthorization::authorized : NotificationAuthorization::denied);
        });
}

void FreedesktopNotificationCenter::requestAuthorization(std::function<void()> answer) {
    if (!consented()) defaults_.setData(consentKey, "1");
    later(std::move(answer));
}

void FreedesktopNotificationCenter::pendingRequests(std::function<void(QList<NotificationRequest>)> answer) {
    later([answer = std::move(answer)] { answer({}); });
}

void FreedesktopNotificationCenter::removePending(const QStringList&) {}

void FreedesktopNotificationCenter::add(const NotificationRequest& request,
                                        std::function<void(std::optional<QString>)> answer) {
    const auto refuse = [this, answer](const QString& text) { later([answer, text] { answer(text); }); };
    if (request.fireAt)
        return refuse(
            QCoreApplication::translate("NotificationCenter", "Reminders cannot be scheduled yet."));
    if (!consented() || !bus_.isConnected())
        return refuse(QCoreApplication::translate("NotificationCenter", "Notifications are not available."));
    ask(serverCall(QStringLiteral("GetCapabilities")),
        [this, request, answer = std::move(answer)](const QDBusPendingCallWatcher& finished) {
            const QDBusPendingReply<QStringList> capabilities = finished;
            if (capabilities.isError()) return answer(capabilities.error().message());
            notify(request, capabilities.value(), answer);
        });
}

void FreedesktopNotificationCenter::notify(const NotificationRequest& request,
                                           const QStringList& capabilities,
                                           std::function<void(std::optional<QString>)> answer) {
    // Where the server reads markup, a title typed by the user must not become any.
    const bool markup = capabilities.contains(QLatin1String("body-markup"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("app.orvane.Orvane")},
                            {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")}};
    constexpr uint replacesNothing = 0;
    constexpr int serversOwnTimeout = -1;
    auto call = serverCall(QStringLiteral("Notify"));
    call << QStringLiteral("Orvane") << replacesNothing << QStringLiteral("app.orvane.Orvane")
         << request.title << (markup ? request.body.toHtmlEscaped() : request.body) << QStringList() << hints
         << serversOwnTimeout;
    ask(call, [answer = std::move(answer)](const QDBusPendingCallWatcher& finished) {
        const QDBusPendingReply<uint> shown = finished;
        answer(shown.isError() ? std::optional(shown.error().message()) : std::nullopt);
    });
}

} // namespace orvane
