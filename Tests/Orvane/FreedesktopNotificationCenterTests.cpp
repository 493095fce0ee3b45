#include "Platform/Linux/FreedesktopNotificationCenter.h"

#include "Doubles/FakeUserDefaults.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <utility>

using namespace orvane;
using namespace orvane::test;

namespace {

const auto consentKey = QStringLiteral("consent.notifications");

/// A bus of the test's own, which can start nothing but what stands in its folder of services.
class PrivateBus {
public:
    PrivateBus() {
        QFile configuration(folder.filePath(QStringLiteral("bus.conf")));
        if (!configuration.open(QIODevice::WriteOnly)) qFatal("no room for the bus's configuration");
        const auto place = folder.path().toUtf8();
        configuration.write("<busconfig><type>session</type><listen>unix:dir=" + place +
                            "</listen><servicedir>" + place +
                            "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
                            "<allow receive_sender=\"*\"/><allow user=\"*\"/>"
                            "<allow own=\"*\"/></policy></busconfig>");
    }
    ~PrivateBus() {
        process_.terminate();
        process_.waitForFinished();
    }

    /// Starts it and gives its address.
    QString start() {
        process_.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--config-file"), folder.filePath(QStringLiteral("bus.conf")),
                        QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
        if (!process_.waitForStarted() || !process_.waitForReadyRead()) qFatal("no bus daemon");
        return QString::fromUtf8(process_.readLine()).trimmed();
    }

    QTemporaryDir folder;

private:
    QProcess process_;
};

} // namespace

/// A notification server that writes down what it is given.
class NotificationServer : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList capabilities{QStringLiteral("body"), QStringLiteral("body-markup")};
    QString refusal;
    QStringList summaries;
    QStringList bodies;
    QVariantMap hints;

public slots:
    QStringList GetCapabilities() const { return capabilities; }
    uint Notify(const QString&, uint, const QString&, const QString& summary, const QString& body,
                const QStringList&, const QVariantMap& given, int) {
        if (!refusal.isEmpty()) {
            sendErrorReply(QDBusError::LimitsExceeded, refusal);
            return 0;
        }
        summaries.append(summary);
        bodies.append(body);
        hints = given;
        return uint(summaries.size());
    }
};

class FreedesktopNotificationCenterTests : public QObject {
    Q_OBJECT

    struct House {
        PrivateBus bus;
        QString address = bus.start();
        QDBusConnection client = QDBusConnection::connectToBus(address, QStringLiteral("client"));
        FakeUserDefaults defaults;
        FreedesktopNotificationCenter center{defaults, client};

        ~House() {
            QDBusConnection::disconnectFromBus(QStringLiteral("server"));
            QDBusConnection::disconnectFromBus(QStringLiteral("client"));
        }
        void consent() { defaults.setData(consentKey, "1"); }
        void run(NotificationServer& server) {
            auto connection = QDBusConnection::connectToBus(address, QStringLiteral("server"));
            QVERIFY(connection.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &server,
                                              QDBusConnection::ExportAllSlots));
            QVERIFY(connection.registerService(QStringLiteral("org.freedesktop.Notifications")));
        }
        std::optional<NotificationAuthorization> status() {
            std::optional<NotificationAuthorization> found;
            center.authorization([&](NotificationAuthorization status) { found = status; });
            if (found) qFatal("the answer came inside the call");
            if (!QTest::qWaitFor([&] { return found.has_value(); })) return std::nullopt;
            return found;
        }
        /// The failure's text; empty when the request was taken.
        QString add(const NotificationRequest& request) {
            std::optional<std::optional<QString>> answer;
            center.add(request, [&](const std::optional<QString>& failure) { answer = failure; });
            if (answer) qFatal("the answer came inside the call");
            if (!QTest::qWaitFor([&] { return answer.has_value(); })) return QStringLiteral("no answer");
            return answer->value_or(QString());
        }
    };

    static NotificationRequest alert(const QString& body) {
        return {QStringLiteral("focus-1"), QStringLiteral("Focus time is up"), body, {}, std::nullopt};
    }

private slots:
    void withoutConsentTheStatusIsNotDetermined() {
        House house;
        NotificationServer server;
        house.run(server);
        QCOMPARE(house.status(), NotificationAuthorization::notDetermined);
        QVERIFY(!house.defaults.data(consentKey));
    }

    void askingIsTheConsentAndIsKept() {
        House house;
        NotificationServer server;
        house.run(server);
        bool answered = false;
        house.center.requestAuthorization([&] { answered = true; });
        QVERIFY(!answered);
        QVERIFY(QTest::qWaitFor([&] { return answered; }));
        QVERIFY(house.defaults.data(consentKey));
        QCOMPARE(house.status(), NotificationAuthorization::authorized);
    }

    void aDesktopWithoutANotificationServerDenies() {
        House house;
        house.consent();
        QCOMPARE(house.status(), NotificationAuthorization::denied);
    }

    void withoutABusNothingCanBeShown() {
        FakeUserDefaults defaults;
        defaults.setData(consentKey, "1");
        FreedesktopNotificationCenter center(defaults, QDBusConnection(QStringLiteral("not connected")));
        std::optional<NotificationAuthorization> status;
        std::optional<QString> failure;
        center.authorization([&](NotificationAuthorization found) { status = found; });
        center.add(alert(QStringLiteral("body")),
                   [&](const std::optional<QString>& text) { failure = text; });
        QVERIFY(QTest::qWaitFor([&] { return status && failure; }));
        QCOMPARE(*status, NotificationAuthorization::denied);
        QCOMPARE(*failure, QStringLiteral("Notifications are not available."));
    }

    void aServerThatTheBusCanStartIsEnough() {
        House house;
        house.consent();
        QFile file(house.bus.folder.filePath(QStringLiteral("notifications.service")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=/bin/false\n");
        file.close();
        auto reload = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReloadConfig"));
        QCOMPARE(house.client.call(reload).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(house.status(), NotificationAuthorization::authorized);
    }

    void aRequestWithoutATimeIsShownAtOnce() {
        House house;
        house.consent();
        NotificationServer server;
        house.run(server);
        QCOMPARE(house.add(alert(QStringLiteral("Your focus session is complete."))), QString());
        QCOMPARE(server.summaries, QStringList{QStringLiteral("Focus time is up")});
        QCOMPARE(server.bodies, QStringList{QStringLiteral("Your focus session is complete.")});
        QCOMPARE(server.hints.value(QStringLiteral("desktop-entry")).toString(),
                 QStringLiteral("app.orvane.Orvane"));
    }

    void aBodyIsEscapedOnlyForAServerThatReadsMarkup() {
        House house;
        house.consent();
        NotificationServer server;
        house.run(server);
        const auto body = QStringLiteral("Fish & <b>chips</b>");
        QCOMPARE(house.add(alert(body)), QString());
        server.capabilities = QStringList{QStringLiteral("body")};
        QCOMPARE(house.add(alert(body)), QString());
        QCOMPARE(server.bodies, (QStringList{QStringLiteral("Fish &amp; &lt;b&gt;chips&lt;/b&gt;"), body}));
    }

    void aServerThatRefusesIsQuoted() {
        House house;
        house.consent();
        NotificationServer server;
        server.refusal = QStringLiteral("Too many notifications");
        house.run(server);
        QCOMPARE(house.add(alert(QStringLiteral("body"))), QStringLiteral("Too many notifications"));
    }

    void aServerThatIsGoneGivesTheBusesText() {
        House house;
        house.consent();
        const auto failure = house.add(alert(QStringLiteral("body")));
        QVERIFY2(failure.contains(QStringLiteral("org.freedesktop.Notifications")), qPrintable(failure));
    }

    void aRequestWithATimeIsRefusedWithAText() {
        House house;
        house.consent();
        NotificationServer server;
        house.run(server);
        auto reminder = alert(QStringLiteral("Tea"));
        reminder.fireAt = planner::Instant{800'000'000};
        QCOMPARE(house.add(reminder), QStringLiteral("Reminders cannot be scheduled yet."));
        QVERIFY(server.summaries.isEmpty());
    }

    void anAnswerForACenterThatIsGoneIsDropped() {
        PrivateBus bus;
        const auto client = QDBusConnection::connectToBus(bus.start(), QStringLiteral("client"));
        FakeUserDefaults defaults;
        defaults.setData(consentKey, "1");
        int answers = 0;
        {
            FreedesktopNotificationCenter center(defaults, client);
            center.authorization([&](NotificationAuthorization) { ++answers; });
            center.add(alert(QStringLiteral("body")), [&](const std::optional<QString>&) { ++answers; });
            center.requestAuthorization([&] { ++answers; });
        }
        // A second center's answer comes after whatever the first one's could have been.
        FreedesktopNotificationCenter other(defaults, client);
        bool answered = false;
        other.authorization([&](NotificationAuthorization) { answered = true; });
        QVERIFY(QTest::qWaitFor([&] { return answered; }));
        QCOMPARE(answers, 0);
        QDBusConnection::disconnectFromBus(QStringLiteral("client"));
    }
};

QTEST_GUILESS_MAIN(FreedesktopNotificationCenterTests)
#include "FreedesktopNotificationCenterTests.moc"
