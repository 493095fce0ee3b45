#pragma once

#include "Platform/NotificationCenter.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>

namespace orvane::test {

/// Notifications that are only written down. Every answer waits until the test lets it out.
class FakeNotificationCenter : public NotificationCenter {
public:
    void authorization(std::function<void(NotificationAuthorization)> answer) override;
    void requestAuthorization(std::function<void()> answer) override;
    void pendingRequests(std::function<void(QList<NotificationRequest>)> answer) override;
    void removePending(const QStringList& identifiers) override;
    void add(const NotificationRequest& request, std::function<void(std::optional<QString>)> answer) override;

    /// Gives the oldest answer. False when none is waiting.
    bool answerOne();
    /// Gives answers, also those that come up meanwhile, until none is waiting.
    void answerAll() {
        while (answerOne()) {
        }
    }
    /// Answers that are waiting.
    std::size_t waiting() const { return answers_.size(); }

    /// The identifiers of the pending requests, in the order in which they came.
    QStringList pendingIdentifiers() const;
    const NotificationRequest* pendingRequest(const QString& identifier) const;

    /// What the user answers when asked; asked twice, the first answer stands.
    NotificationAuthorization decision = NotificationAuthorization::authorized;
    NotificationAuthorization status = NotificationAuthorization::authorized;
    QList<NotificationRequest> pending;
    /// Requests that were shown at once, having no time of their own.
    QList<NotificationRequest> shown;
    /// The text with which a request of this identifier is refused.
    QHash<QString, QString> refusals;

    // What was called, in words: "authorization", "request", "pendingRequests", "remove task-…", "add
    // task-…".
    QStringList calls;

private:
    std::optional<QString> take(const NotificationRequest& request);

    std::deque<std::function<void()>> answers_;
};

} // namespace orvane::test
