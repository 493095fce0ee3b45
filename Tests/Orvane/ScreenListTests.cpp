#include "Platform/Linux/ScreenList.h"

#include <QTest>

using orvane::displayHash;
using orvane::displayIdentifier;

class ScreenListTests : public QObject {
    Q_OBJECT

private slots:
    void theHashIsFnv1aOfTheUtf8Bytes_data() {
        // The test vectors that the algorithm's authors publish.
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint32>("hash");
        QTest::newRow("empty") << QString() << 0x811c9dc5u;
        QTest::newRow("a") << QStringLiteral("a") << 0xe40c292cu;
        QTest::newRow("foobar") << QStringLiteral("foobar") << 0xbf9cf968u;
    }
    void theHashIsFnv1aOfTheUtf8Bytes() {
        QFETCH(QString, text);
        QTEST(displayHash(text), "hash");
    }

    void aTextWhoseHashIsZeroGivesOne() { QCOMPARE(displayHash(textThatHashesToZero()), 1u); }

    void aDisplayKeepsItsIdAtAnotherOutput() {
        const auto at = [](const char* output) {
            return displayIdentifier(QStringLiteral("Maker"), QStringLiteral("M27"), QStringLiteral("A1"),
                                     QLatin1String(output));
        };
        QCOMPARE(at("HDMI-1"), at("DP-2"));
        QCOMPARE(at("HDMI-1"), displayHash(QStringLiteral("Maker\nM27\nA1")));
    }

    void twoOfTheSameModelDifferInTheirSerialNumber() {
        const auto numbered = [](const char* serial) {
            return displayIdentifier(QStringLiteral("Maker"), QStringLiteral("M27"), QLatin1String(serial),
                                     QStringLiteral("DP-1"));
        };
        QVERIFY(numbered("A1") != numbered("A2"));
    }

    void whatStandsInOneFieldIsNotTakenForAnother() {
        const auto output = QStringLiteral("DP-1");
        QVERIFY(displayIdentifier(QStringLiteral("ab"), QStringLiteral("c"), QString(), output) !=
                displayIdentifier(QStringLiteral("a"), QStringLiteral("bc"), QString(), output));
    }

    void aDisplayThatReportsNothingGoesByItsOutput() {
        const auto silent = [](const char* output) {
            return displayIdentifier(QString(), QStringLiteral(" "), QString(), QLatin1String(output));
        };
        QCOMPARE(silent("HDMI-1"), displayHash(QStringLiteral("HDMI-1")));
        QVERIFY(silent("HDMI-1") != silent("DP-2"));
        QVERIFY(displayIdentifier({}, {}, {}, {}) != 0);
    }

    void withoutAWindowSystemThereAreNone() { QVERIFY(orvane::ScreenList().list().isEmpty()); }

private:
    static QString textThatHashesToZero() { return QStringLiteral("fxdsatwp"); }
};

QTEST_GUILESS_MAIN(ScreenListTests)
#include "ScreenListTests.moc"
