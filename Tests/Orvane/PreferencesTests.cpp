#include "Fuzz/PreferencesTarget.h"
#include "Model/Preferences.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <limits>

using orvane::Preferences;
using orvane::WorkspaceCard;
using Cards = QList<WorkspaceCard>;

namespace {

Preferences loaded(const QByteArray& json) {
    const auto decoded = Preferences::decoded(json);
    return decoded ? decoded->repaired() : Preferences().repaired();
}

} // namespace

class PreferencesTests : public QObject {
    Q_OBJECT

private slots:
    void theDefaultsAreWhatANewUserSees() {
        const Preferences defaults;
        QCOMPARE(defaults.appearance, QStringLiteral("system"));
        QCOMPARE(defaults.clockStyle, QStringLiteral("rounded"));
        QCOMPARE(defaults.defaultMinutes, 25);
        QVERIFY(defaults.hoverEnabled);
        QCOMPARE(defaults.cards, (Cards{WorkspaceCard::tasks, WorkspaceCard::focus, WorkspaceCard::notes,
                                        WorkspaceCard::agenda}));
        QCOMPARE(defaults.hiddenCards, Cards());
        QCOMPARE(defaults.cardWidth, 260.0);
        QCOMPARE(defaults.displayID, 0u);
        QVERIFY(!defaults.onboardingComplete);
        QVERIFY(defaults.repaired() == defaults);
    }

    void eachCardHasItsWordAndNothingElseIsACard() {
        for (const auto card : orvane::allWorkspaceCards())
            QVERIFY(orvane::workspaceCard(orvane::rawValue(card)) == card);
        for (const auto* word : {"", "Tasks", "task", " tasks", "calendar"})
            QVERIFY(!orvane::workspaceCard(QString::fromLatin1(word)));
    }

    void theStoredFormIsOneLineWithSortedKeys() {
        Preferences preferences;
        preferences.hiddenCards = {WorkspaceCard::agenda, WorkspaceCard::focus};
        preferences.displayID = 4294967295u;
        QCOMPARE(preferences.encoded(),
                 QByteArray(R"({"appearance":"system","cardWidth":260,"cards":["tasks","focus","notes",)"
                            R"("agenda"],"clockStyle":"rounded","defaultMinutes":25,)"
                            R"("displayID":4294967295,"hiddenCards":["focus","agenda"],)"
                            R"("hoverEnabled":true,"onboardingComplete":false})"));
    }

    void everyFieldComesBackAsItWasStored() {
        Preferences preferences;
        preferences.appearance = QStringLiteral("dark „ü“ \U0001F4D3\n");
        preferences.clockStyle = QStringLiteral("serif");
        preferences.defaultMinutes = std::numeric_limits<std::int64_t>::max();
        preferences.hoverEnabled = false;
        preferences.cards = {WorkspaceCard::notes, WorkspaceCard::notes};
        preferences.hiddenCards = {WorkspaceCard::focus, WorkspaceCard::tasks};
        preferences.cardWidth = 1.0 / 3;
        preferences.displayID = 3'000'000'000u;
        preferences.onboardingComplete = true;
        const auto decoded = Preferences::decoded(preferences.encoded());
        QVERIFY(decoded);
        QVERIFY(*decoded == preferences);
    }

    void hiddenCardsAreASet() {
        Preferences one;
        Preferences other;
        one.hiddenCards = {WorkspaceCard::focus, WorkspaceCard::tasks};
        other.hiddenCards = {WorkspaceCard::tasks, WorkspaceCard::focus};
        QVERIFY(one == other);
        QCOMPARE(one.encoded(), other.encoded());
        QCOMPARE(Preferences::decoded(R"({"hiddenCards":["notes","focus","notes"]})")->hiddenCards,
                 (Cards{WorkspaceCard::focus, WorkspaceCard::notes}));
    }

    void aMissingKeyTakesItsDefault() {
        QVERIFY(Preferences::decoded("{}") == Preferences());
        const auto partial = Preferences::decoded(R"({"appearance":"dark","future":[1,{"a":null}]})");
        QVERIFY(partial);
        QCOMPARE(partial->appearance, QStringLiteral("dark"));
        QCOMPARE(partial->defaultMinutes, 25);
        QVERIFY(Preferences::decoded(R"({"cards":null,"cardWidth":null,"hoverEnabled":null})") ==
                Preferences());
    }

    void minutesOutsideOneTo180AreClamped() {
        QCOMPARE(loaded(R"({"defaultMinutes":0})").defaultMinutes, 1);
        QCOMPARE(loaded(R"({"defaultMinutes":500})").defaultMinutes, 180);
        QCOMPARE(loaded(R"({"defaultMinutes":-9223372036854775808})").defaultMinutes, 1);
        QCOMPARE(loaded(R"({"defaultMinutes":9223372036854775807})").defaultMinutes, 180);
        QCOMPARE(loaded(R"({"defaultMinutes":180})").defaultMinutes, 180);
        QCOMPARE(loaded(R"({"defaultMinutes":1.0})").defaultMinutes, 1);
    }

    void aCardWidthOutside230To380IsClamped() {
        QCOMPARE(loaded(R"({"cardWidth":100})").cardWidth, 230.0);
        QCOMPARE(loaded(R"({"cardWidth":1000})").cardWidth, 380.0);
        QCOMPARE(loaded(R"({"cardWidth":1e300})").cardWidth, 380.0);
        QCOMPARE(loaded(R"({"cardWidth":-5e-324})").cardWidth, 230.0);
        QCOMPARE(loaded(R"({"cardWidth":299.5})").cardWidth, 299.5);
    }

    void theCardListKeepsFirstOccurrencesAndGetsWhatItLacks() {
        QCOMPARE(
            loaded(R"({"cards":["notes","notes","tasks"]})").cards,
            (Cards{WorkspaceCard::notes, WorkspaceCard::tasks, WorkspaceCard::focus, WorkspaceCard::agenda}));
        QCOMPARE(loaded(R"({"cards":[]})").cards, orvane::allWorkspaceCards());
    }

    void theOtherFieldsAreTakenAsStored() {
        const auto preferences = loaded(R"({"appearance":"purple","clockStyle":"","hoverEnabled":false,)"
                                        R"("hiddenCards":["tasks","focus","notes","agenda"],)"
                                        R"("displayID":77,"onboardingComplete":true})");
        QCOMPARE(preferences.appearance, QStringLiteral("purple"));
        QCOMPARE(preferences.clockStyle, QString());
        QVERIFY(!preferences.hoverEnabled);
        QCOMPARE(preferences.hiddenCards, orvane::allWorkspaceCards());
        QCOMPARE(preferences.displayID, 77u);
        QVERIFY(preferences.onboardingComplete);
    }

    void whatIsNoRecordGivesNothing_data() {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const QByteArray& bytes) { QTest::newRow(name) << bytes; };
        row("no bytes", "");
        row("white space", " \n");
        row("not JSON", "system");
        row("cut off", R"({"appearance":"dark")");
        row("trailing bytes", R"({"appearance":"dark"} x)");
        row("two records", "{}{}");
        row("a list", "[]");
        row("a text", R"("dark")");
        row("a number", "7");
        row("null", "null");
        row("zero bytes", QByteArray(64, '\0'));
        row("invalid UTF-8", "{\"appearance\":\"\xff\xfe\"}");
        row("overlong UTF-8", "{\"appearance\":\"\xc0\x80\"}");
        row("nested without end", QByteArray(100'000, '['));
        row("nested in a key", R"({"appearance":)" + QByteArray(5000, '[') + QByteArray(5000, ']') + "}");
        row("infinite number", R"({"cardWidth":1e999})");
        row("word for a number", R"({"cardWidth":NaN})");
        row("text for a number", R"({"cardWidth":"260"})");
        row("truth for a number", R"({"cardWidth":true})");
        row("number for a text", R"({"appearance":1})");
        row("object for a text", R"({"clockStyle":{}})");
        row("number for a truth", R"({"hoverEnabled":1})");
        row("text for a truth", R"({"onboardingComplete":"true"})");
        row("fraction of a minute", R"({"defaultMinutes":2.5})");
        row("minutes beyond 64 bits", R"({"defaultMinutes":9223372036854775808})");
        row("minutes far beyond", R"({"defaultMinutes":1e300})");
        row("text for minutes", R"({"defaultMinutes":"25"})");
        row("negative display", R"({"displayID":-1})");
        row("display beyond 32 bits", R"({"displayID":4294967296})");
        row("fraction of a display", R"({"displayID":0.5})");
        row("unknown card", R"({"cards":["tasks","weather"]})");
        row("unknown hidden card", R"({"hiddenCards":["weather"]})");
        row("number for a card", R"({"cards":[0]})");
        row("null for a card", R"({"cards":[null]})");
        row("text for the cards", R"({"cards":"tasks"})");
        row("object for the cards", R"({"cards":{"0":"tasks"}})");
    }

    void whatIsNoRecordGivesNothing() {
        QFETCH(QByteArray, bytes);
        QVERIFY(!Preferences::decoded(bytes));
    }

    void everySeedOfTheFuzzTargetKeepsItsPromises_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QDir folder(QStringLiteral(ORVANE_FUZZ_SEEDS));
        for (const auto& name : folder.entryList(QDir::Files)) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QTest::newRow(qPrintable(name)) << file.readAll();
        }
    }

    void everySeedOfTheFuzzTargetKeepsItsPromises() {
        QFETCH(QByteArray, bytes);
        orvane::test::readPreferences(bytes);
    }

    void everyDamagedByteIsReadWithinBoundsOrRefused() {
        const auto whole = Preferences().encoded();
        for (qsizetype position = 0; position < whole.size(); ++position)
            for (int value = 0; value < 256; ++value) {
                auto damaged = whole;
                damaged[position] = char(value);
                orvane::test::readPreferences(damaged);
            }
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY(!Preferences::decoded(whole.first(length)));
    }
};

QTEST_GUILESS_MAIN(PreferencesTests)
#include "PreferencesTests.moc"
