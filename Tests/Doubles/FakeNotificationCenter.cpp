#include "Doubles/FakeNotificationCenter.h"

#include <algorithm>
#include <utility>

namespace orvane::test {

void FakeNotificationCenter::authorization(std::function<void(NotificationAuthorization)> answer) {
    calls.append(QStringLiteral("authorization"));
    answers_.push_back([this, answer = std::move(answer)] { answer(status); });
}

void FakeNotificationCenter::requestAuthorization(std::function<void()> answer) {
    calls.append(QStringLiteral("request"));
    answers_.push_back([this, answer = std::move(answer)] {
        if (status == NotificationAuthorization::notDetermined) status = decision;
        answer();
    });
}

void FakeNotificationCenter::pendingRequests(std::function<void(QList<NotificationRequest>)> answer) {
    calls.append(QStringLiteral("pendingRequests"));
    answers_.push_back([this, answer = std::move(answer)] { answer(pending); });
}

void FakeNotificationCenter::removePending(const QStringList& identifiers) {
    calls.append(QStringLiteral("remove ") + identifiers.join(u' '));
    pending.removeIf([&](const auto& request) { return identifiers.contains(request.identifier); });
}

void FakeNotificationCenter::add(const NotificationRequest& request,
                                 std::function<void(std::optional<QString>)> answer) {
    calls.append(QStringLiteral("add ") + request.identifier);
    answers_.push_back([this, request, answer = std::move(answer)] { answer(take(request)); });
}

std::optional<QString> FakeNotificationCenter::take(const NotificationRequest& request) {
    if (refusals.contains(request.identifier)) return refusals.value(request.identifier);
    if (!request.fireAt) {
        shown.append(request);
        return std::nullopt;
    }
    pending.removeIf([&](const auto& other) { return other.identifier == request.identifier; });
    pending.append(request);
    return std::nullopt;
}

bool FakeNotificationCenter::answerOne() {
    if (answers_.empty()) return false;
    const auto answer = std::move(answers_.front());
    answers_.pop_front();
    answer();
    return true;
}

QStringList FakeNotificationCenter::pendingIdentifiers() const {
    QStringList identifiers;
    for (const auto& request : pending) identifiers.append(request.identifier);
    return identifiers;
}

const NotificationRequest* FakeNotificationCenter::pendingRequest(const QString& identifier) const {
    const auto found = std::find_if(pending.begin(), pending.end(),
                                    [&](const auto& request) { return request.identifier == identifier; });
    return found == pending.end() ? nullptr : &*found;
}

} // namespace orvane::test
