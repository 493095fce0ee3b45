#include "Doubles/FakeInformationDictionary.h"
#include "Integrations/UpdateService.h"

#include <QTest>

using namespace orvane;
using namespace orvane::test;

class UpdateServiceTests : public QObject {
    Q_OBJECT

private slots:
    void onlyASignedFeedOverHttpsIsConfigured_data() {
        QTest::addColumn<QString>("feed");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("configured");
        const QString good = QStringLiteral("https://updates.example.org/feed.xml");
        const QString key = QStringLiteral("c2lnbmF0dXJl");
        QTest::newRow("complete") << good << key << true;
        QTest::newRow("no feed") << QString() << key << false;
        QTest::newRow("an empty feed") << QStringLiteral("") << key << false;
        QTest::newRow("not encrypted")
            << QStringLiteral("http://updates.example.org/feed.xml") << key << false;
        QTest::newRow("a scheme in capitals")
            << QStringLiteral("HTTPS://updates.example.org/") << key << false;
        QTest::newRow("no host") << QStringLiteral("https:///feed.xml") << key << false;
        QTest::newRow("no address") << QStringLiteral("https://not an address") << key << false;
        QTest::newRow("no key") << good << QString() << false;
        QTest::newRow("an empty key") << good << QStringLiteral("") << false;
    }

    void onlyASignedFeedOverHttpsIsConfigured() {
        QFETCH(QString, feed);
        QFETCH(QString, key);
        QFETCH(bool, configured);
        FakeInformationDictionary information;
        if (!feed.isNull()) information.texts[QStringLiteral("SUFeedURL")] = feed;
        if (!key.isNull()) information.texts[QStringLiteral("SUPublicEDKey")] = key;
        const UpdateService service(information);
        QCOMPARE(service.configured(), configured);
        QCOMPARE(service.message(),
                 configured
                     ? QStringLiteral("Updates are verified before installation.")
                     : QStringLiteral("Updates will be available when a signed release feed is configured."));
    }
};

QTEST_APPLESS_MAIN(UpdateServiceTests)
#include "UpdateServiceTests.moc"
