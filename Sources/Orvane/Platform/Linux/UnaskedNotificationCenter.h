#pragma once

#include "Platform/NotificationCenter.h"

#include <QObject>

namespace orvane {

/// Notifications while the program has never asked to show any: nothing is pending, and a request is
/// refused with a text.
class UnaskedNotificationCenter : public NotificationCenter {
public:
    void authorization(std::function<void(NotificationAuthorization)> answer) override;
    void requestAuthorization(std::function<void()> answer) override;
    void pendingRequests(std::function<void(QList<NotificationRequest>)> answer) override;
    void removePending(const QStringList& identifiers) override;
    void add(const NotificationRequest& request, std::function<void(std::optional<QString>)> answer) override;

private:
    /// Answers come through its events, so never inside the call and never after its end.
    QObject home_;
};

} // namespace orvane
