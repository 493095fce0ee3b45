#include "Doubles/FakePlatform.h"
#include "Model/SettingsModel.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>

using orvane::Preferences;
using orvane::SettingsModel;
using orvane::WorkspaceCard;
using orvane::test::FakePlatform;
using Cards = QList<WorkspaceCard>;

namespace {

const auto key = QStringLiteral("preferences.v1");

Preferences stored(const FakePlatform& desktop) {
    return Preferences::decoded(desktop.defaults.values.value(key)).value();
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(SettingsModel&)>)
Q_DECLARE_METATYPE(std::function<bool(const SettingsModel&)>)

/// What the controls of the settings call.
class SettingsModelCommandsTests : public QObject {
    Q_OBJECT

private slots:
    void eachControlsValueIsThereAtTheNextStart_data() {
        using Change = std::function<void(SettingsModel&)>;
        using Check = std::function<bool(const SettingsModel&)>;
        QTest::addColumn<Change>("change");
        QTest::addColumn<Check>("kept");
        const auto row = [](const char* name, const Change& change, const Check& kept) {
            QTest::newRow(name) << change << kept;
        };
        row(
            "opening on hover", [](auto& s) { s.setHoverEnabled(false); },
            [](auto& s) { return !s.hoverEnabled(); });
        row(
            "a hidden card", [](auto& s) { s.setCardShown("focus", false); },
            [](auto& s) { return s.preferences().hiddenCards == Cards{WorkspaceCard::focus}; });
        row(
            "a moved card", [](auto& s) { s.moveCard("tasks", 1); },
            [](auto& s) { return s.preferences().cards.front() == WorkspaceCard::focus; });
        row(
            "the cards' width", [](auto& s) { s.setCardWidth(310); },
            [](auto& s) { return s.cardWidth() == 310; });
        row(
            "the display", [](auto& s) { s.setDisplayID(4'000'000'000u); },
            [](auto& s) { return s.displayID() == 4'000'000'000u; });
        row(
            "the appearance", [](auto& s) { s.setAppearance("dark"); },
            [](auto& s) { return s.appearance() == QLatin1String("dark"); });
        row(
            "the clock's style", [](auto& s) { s.setClockStyle("monospaced"); },
            [](auto& s) { return s.clockStyle() == QLatin1String("monospaced"); });
        row(
            "the minutes", [](auto& s) { s.setDefaultMinutes(50); },
            [](auto& s) { return s.defaultMinutes() == 50; });
    }

    void eachControlsValueIsThereAtTheNextStart() {
        QFETCH(std::function<void(SettingsModel&)>, change);
        QFETCH(std::function<bool(const SettingsModel&)>, kept);
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QVERIFY(!kept(settings));
        change(settings);
        QVERIFY(kept(settings));
        QCOMPARE(desktop.defaults.writes, QStringList{key});
        QVERIFY(kept(SettingsModel(desktop.platform)));
        change(settings);
        // Only moving a card again is another change.
        QCOMPARE(desktop.defaults.writes.size(),
                 QTest::currentDataTag() == QByteArray("a moved card") ? 2 : 1);
    }

    void aDraggedWidthTakesEffectAtOnceAndIsSavedWhenTheDragIsOver() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QSignalSpy changed(&settings, &SettingsModel::preferencesChanged);
        settings.setAdjusting(true);
        for (const double width : {270, 280, 280, 290}) settings.setCardWidth(width);
        QCOMPARE(settings.cardWidth(), 290.0);
        QCOMPARE(changed.size(), 3);
        QVERIFY(desktop.defaults.writes.isEmpty());
        settings.setAdjusting(false);
        QCOMPARE(stored(desktop).cardWidth, 290.0);
        QCOMPARE(desktop.defaults.writes.size(), 1);
        settings.setAdjusting(true);
        settings.setAdjusting(false);
        QCOMPARE(desktop.defaults.writes.size(), 1);
    }

    void anythingElseThatIsSavedDuringADragSavesTheWidthToo() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        settings.setAdjusting(true);
        settings.setCardWidth(300);
        settings.setHoverEnabled(false);
        QCOMPARE(stored(desktop).cardWidth, 300.0);
        settings.setAdjusting(false);
        QCOMPARE(desktop.defaults.writes.size(), 1);
    }

    void aProgramThatEndsDuringADragHasSavedIt() {
        FakePlatform desktop;
        {
            SettingsModel settings(desktop.platform);
            settings.setAdjusting(true);
            settings.setCardWidth(300);
        }
        QCOMPARE(stored(desktop).cardWidth, 300.0);
    }

    void minutesAndWidthStayWithinWhatIsAllowed() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        settings.setDefaultMinutes(0);
        QCOMPARE(settings.defaultMinutes(), 1);
        settings.setDefaultMinutes(std::numeric_limits<int>::max());
        QCOMPARE(settings.defaultMinutes(), 180);
        settings.setCardWidth(-std::numeric_limits<double>::infinity());
        QCOMPARE(settings.cardWidth(), 230.0);
        settings.setCardWidth(1e9);
        QCOMPARE(settings.cardWidth(), 380.0);
        settings.setCardWidth(std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(settings.cardWidth(), 380.0);
    }

    void showingAHiddenCardAgainLeavesTheOthersHidden() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        for (const auto* card : {"tasks", "notes", "agenda"}) settings.setCardShown(card, false);
        settings.setCardShown("notes", true);
        QCOMPARE(settings.preferences().hiddenCards, (Cards{WorkspaceCard::tasks, WorkspaceCard::agenda}));
    }

    void aWordThatNamesNoCardChangesNothing() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        settings.moveCard("weather", 1);
        settings.setCardShown("", false);
        settings.setCardShown("Tasks", false);
        QVERIFY(settings.preferences() == Preferences());
        QVERIFY(desktop.defaults.writes.isEmpty());
    }
};

QTEST_GUILESS_MAIN(SettingsModelCommandsTests)
#include "SettingsModelCommandsTests.moc"
