#pragma once

#include <PlannerCore/Instant.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace orvane {

enum class NotificationAuthorization {
    notDetermined = 0,
    denied = 1,
    authorized = 2,
    provisional = 3,
    ephemeral = 4
};

/// One notification, shown at `fireAt` or, without it, at once.
struct NotificationRequest {
    QString identifier;
    QString title;
    QString body;
    QHash<QString, QString> userInfo;
    std::optional<planner::Instant> fireAt;
};

/// The desktop's notifications. Main thread; every answer comes later, never inside the call.
class NotificationCenter {
public:
    virtual ~NotificationCenter() = default;

    /// Reads whether notifications may be shown; asks the user for nothing.
    virtual void authorization(std::function<void(NotificationAuthorization)> answer) = 0;
    /// Asks the user for leave to show notifications where that has not been decided; the answer comes when
    /// it is, and `authorization` then knows it.
    virtual void requestAuthorization(std::function<void()> answer) = 0;
    /// The requests that are still to be shown.
    virtual void pendingRequests(std::function<void(QList<NotificationRequest>)> answer) = 0;
    /// Drops pending requests; unknown identifiers are ignored.
    virtual void removePending(const QStringList& identifiers) = 0;
    /// Takes a request, in place of a pending one of the same identifier. The answer is the failure's
    /// text, or nothing when the request was taken.
    virtual void add(const NotificationRequest& request,
                     std::function<void(std::optional<QString>)> answer) = 0;
};

} // namespace orvane
