#include "App/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

#include <chrono>
#include <thread>

namespace orvane {
namespace {

const auto serviceName = QStringLiteral("app.orvane.Orvane");
const auto objectPath = QStringLiteral("/app/orvane/Orvane");
const auto interfaceName = QStringLiteral("org.freedesktop.Application");
/// How long a start waits for the first one to answer, in milliseconds.
constexpr int answerTimeout = 5000;
/// The first one holds the planner's folder a moment before it has its name: so often and so far apart
/// is it asked again.
constexpr int attempts = 20;
constexpr std::chrono::milliseconds pause{100};

} // namespace

/// The bus's view of the program. There are no files to open and no actions: both only come to the
/// front.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SingleInstance* instance)
        : QDBusAbstractAdaptor(instance), instance_(instance) {}

public slots:
    void Activate(const QVariantMap&) { emit instance_->activated(); }
    void Open(const QStringList&, const QVariantMap&) { emit instance_->activated(); }
    void ActivateAction(const QString&, const QVariantList&, const QVariantMap&) {
        emit instance_->activated();
    }

private:
    SingleInstance* instance_;
};

SingleInstance::~SingleInstance() {
    if (!claimed_) return;
    auto bus = QDBusConnection::sessionBus();
    bus.unregisterService(serviceName);
    bus.unregisterObject(objectPath);
}

bool SingleInstance::claim() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    new ApplicationAdaptor(this);
    // The object first: whoever finds the name must find something to talk to.
    if (!bus.registerObject(objectPath, this)) return false;
    claimed_ = bus.registerService(serviceName);
    if (!claimed_) bus.unregisterObject(objectPath);
    return claimed_;
}

bool SingleInstance::activateOther() {
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    auto call =
        QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName, QStringLiteral("Activate"));
    call.setArguments({QVariantMap()});
    call.setAutoStartService(false);
    for (int attempt = 1;; ++attempt) {
        const auto reply = bus.call(call, QDBus::Block, answerTimeout);
        if (reply.type() == QDBusMessage::ReplyMessage) return true;
        const auto error = reply.errorName();
        const bool nameless = error == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
                              error == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
        if (!nameless || attempt == attempts) return false;
        std::this_thread::sleep_for(pause);
    }
}

} // namespace orvane

#include "SingleInstance.moc"
