#include "App/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace orvane {
namespace {

const QString busName = QStringLiteral("app.orvane.Orvane");
const QString objectPath = QStringLiteral("/app/orvane/Orvane");

/// Milliseconds to wait for the running program's answer.
constexpr int answerTimeout = 5000;

} // namespace

SingleInstance::SingleInstance(std::function<void()> activated, QObject* parent)
    : QObject(parent), activated_(std::move(activated)) {
    new ApplicationAdaptor(*this);
}

void SingleInstance::claim() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // In this order: whoever sees the name may call at once.
    if (bus.registerObject(objectPath, this)) bus.registerService(busName);
}

bool SingleInstance::activateOther() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    auto call = QDBusMessage::createMethodCall(
        busName, objectPath, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    // Starting a program to be asked would end where this one stands.
    call.setAutoStartService(false);
    call << QVariantMap();
    return bus.call(call, QDBus::Block, answerTimeout).type() == QDBusMessage::ReplyMessage;
}

void ApplicationAdaptor::Activate(const QVariantMap&) {
    owner_.activated_();
}

void ApplicationAdaptor::Open(const QStringList&, const QVariantMap&) {
    owner_.activated_();
}

void ApplicationAdaptor::ActivateAction(const QString&, const QVariantList&, const QVariantMap&) {
    owner_.activated_();
}

} // namespace orvane
