#include "Doubles/FakePlatform.h"
#include "Model/SettingsModel.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using orvane::DisplayOption;
using orvane::LoginItemStatus;
using orvane::Preferences;
using orvane::SettingsModel;
using orvane::WorkspaceCard;
using orvane::test::FakePlatform;
using orvane::test::FakeScreens;
using Cards = QList<WorkspaceCard>;

namespace {

const auto key = QStringLiteral("preferences.v1");

Preferences stored(const FakePlatform& desktop) {
    return Preferences::decoded(desktop.defaults.values.value(key)).value();
}

} // namespace

class SettingsModelTests : public QObject {
    Q_OBJECT

private slots:
    void withoutARecordItBeginsWithTheDefaultsAndWritesNothing() {
        FakePlatform desktop;
        const SettingsModel settings(desktop.platform);
        QVERIFY(settings.preferences() == Preferences());
        QVERIFY(desktop.defaults.writes.isEmpty());
    }

    void anUndecodableRecordGivesTheDefaultsAndKeepsItsBytes() {
        FakePlatform desktop;
        desktop.defaults.values[key] = R"({"appearance":"dark","cards":["weather"]})";
        const SettingsModel settings(desktop.platform);
        QVERIFY(settings.preferences() == Preferences());
        QVERIFY(desktop.defaults.writes.isEmpty());
    }

    void aStoredRecordIsRepairedOnLoading() {
        FakePlatform desktop;
        desktop.defaults.values[key] =
            R"({"appearance":"dark","cardWidth":1000,"cards":["notes","notes","tasks"],"defaultMinutes":0})";
        const SettingsModel settings(desktop.platform);
        QCOMPARE(settings.appearance(), QStringLiteral("dark"));
        QCOMPARE(settings.cardWidth(), 380.0);
        QCOMPARE(settings.preferences().defaultMinutes, 1);
        QCOMPARE(settings.preferences().cards, (Cards{WorkspaceCard::notes, WorkspaceCard::tasks,
                                                      WorkspaceCard::focus, WorkspaceCard::agenda}));
    }

    void eachChangeIsSavedBeforeItsOwnerIsTold() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QSignalSpy changed(&settings, &SettingsModel::preferencesChanged);
        int told = 0;
        settings.onChange = [&] {
            ++told;
            QVERIFY(stored(desktop) == settings.preferences());
        };
        auto preferences = settings.preferences();
        preferences.hoverEnabled = false;
        settings.setPreferences(preferences);
        QCOMPARE(told, 1);
        QCOMPARE(changed.size(), 1);
        QVERIFY(!settings.hoverEnabled());
        settings.setPreferences(preferences);
        QCOMPARE(told, 1);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(desktop.defaults.writes, QStringList{key});
    }

    void whatWasSavedIsThereAtTheNextStart() {
        FakePlatform desktop;
        {
            SettingsModel settings(desktop.platform);
            settings.move(WorkspaceCard::agenda, -3);
        }
        const SettingsModel settings(desktop.platform);
        QCOMPARE(settings.preferences().cards, (Cards{WorkspaceCard::agenda, WorkspaceCard::focus,
                                                      WorkspaceCard::notes, WorkspaceCard::tasks}));
    }

    void movingACardSwapsItWithItsNeighbour() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        settings.move(WorkspaceCard::tasks, 1);
        QCOMPARE(settings.preferences().cards, (Cards{WorkspaceCard::focus, WorkspaceCard::tasks,
                                                      WorkspaceCard::notes, WorkspaceCard::agenda}));
        settings.move(WorkspaceCard::agenda, -1);
        QCOMPARE(settings.preferences().cards, (Cards{WorkspaceCard::focus, WorkspaceCard::tasks,
                                                      WorkspaceCard::agenda, WorkspaceCard::notes}));
        QCOMPARE(desktop.defaults.writes.size(), 2);
        QVERIFY(stored(desktop) == settings.preferences());
    }

    void movingTheFirstCardUpDoesNothingAndSavesNothing() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        settings.onChange = [] { QFAIL("nothing changed"); };
        settings.move(WorkspaceCard::tasks, -1);
        settings.move(WorkspaceCard::agenda, 1);
        settings.move(WorkspaceCard::notes, std::numeric_limits<int>::max());
        settings.move(WorkspaceCard::notes, std::numeric_limits<int>::min());
        QVERIFY(settings.preferences() == Preferences());
        QVERIFY(desktop.defaults.writes.isEmpty());
    }

    void resettingTheLayoutKeepsEverythingElse() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        Preferences preferences;
        preferences.appearance = QStringLiteral("dark");
        preferences.clockStyle = QStringLiteral("serif");
        preferences.defaultMinutes = 50;
        preferences.hoverEnabled = false;
        preferences.displayID = 7;
        preferences.onboardingComplete = true;
        auto expected = preferences;
        preferences.cards = {WorkspaceCard::agenda, WorkspaceCard::notes, WorkspaceCard::focus,
                             WorkspaceCard::tasks};
        preferences.hiddenCards = {WorkspaceCard::tasks};
        preferences.cardWidth = 300;
        settings.setPreferences(preferences);
        desktop.defaults.writes.clear();
        settings.resetLayout();
        QVERIFY(settings.preferences() == expected);
        QVERIFY(stored(desktop) == expected);
    }

    void resettingTheLayoutSavesAfterEachOfItsThreeChanges() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        int told = 0;
        settings.onChange = [&] { ++told; };
        settings.resetLayout();
        QCOMPARE(told, 3);
        QCOMPARE(desktop.defaults.writes.size(), 3);
    }

    void theDisplaysAreListedInTheSystemsOrder() {
        FakePlatform desktop;
        desktop.screens.set({FakeScreens::plain(9, "Studio"), FakeScreens::plain(2, "Built-in")});
        SettingsModel settings(desktop.platform);
        QCOMPARE(settings.displays(), QList<DisplayOption>());
        QSignalSpy changed(&settings, &SettingsModel::displaysChanged);
        settings.refreshDisplays();
        QCOMPARE(settings.displays(), (QList<DisplayOption>{{9, "Studio"}, {2, "Built-in"}}));
        settings.refreshDisplays();
        QCOMPARE(changed.size(), 1);
    }

    void aDisplayThatGoesStaysThePreferredOne() {
        FakePlatform desktop;
        desktop.screens.set({FakeScreens::plain(2, "Built-in"), FakeScreens::plain(9, "Studio")});
        SettingsModel settings(desktop.platform);
        auto preferences = settings.preferences();
        preferences.displayID = 9;
        settings.setPreferences(preferences);
        settings.refreshDisplays();
        desktop.screens.set({FakeScreens::plain(2, "Built-in")});
        settings.refreshDisplays();
        QCOMPARE(settings.displays(), (QList<DisplayOption>{{2, "Built-in"}}));
        QCOMPARE(settings.preferences().displayID, 9u);
        QCOMPARE(stored(desktop).displayID, 9u);
    }

    void theDisplaysFollowWhatIsPluggedInAndOut() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        desktop.screens.set({FakeScreens::plain(2, "Built-in"), FakeScreens::plain(9, "Studio")});
        QCOMPARE(settings.displays(), (QList<DisplayOption>{{2, "Built-in"}, {9, "Studio"}}));
        const auto values = settings.displayValues();
        QCOMPARE(values.size(), 2);
        QCOMPARE(values[1].toMap(), (QVariantMap{{"id", 9u}, {"name", "Studio"}}));
    }

    void aChosenDisplayIsMissingWhileItIsUnplugged() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QSignalSpy changed(&settings, &SettingsModel::displayMissingChanged);
        desktop.screens.set({FakeScreens::plain(2, "Built-in"), FakeScreens::plain(9, "Studio")});
        QVERIFY(!settings.displayMissing());
        settings.setDisplayID(9);
        QVERIFY(!settings.displayMissing());
        QCOMPARE(changed.size(), 0);
        desktop.screens.set({FakeScreens::plain(2, "Built-in")});
        QVERIFY(settings.displayMissing());
        QCOMPARE(changed.size(), 1);
        settings.setDisplayID(0);
        QVERIFY(!settings.displayMissing());
        QCOMPARE(changed.size(), 2);
    }

    void aStoredDisplayThatIsNotThereIsMissingFromTheStart() {
        FakePlatform desktop;
        desktop.defaults.values[key] = R"({"displayID":9})";
        SettingsModel settings(desktop.platform);
        settings.refreshDisplays();
        QVERIFY(settings.displayMissing());
    }

    void theLoginItemsStatusIsReadAtCreation() {
        FakePlatform desktop;
        desktop.loginItem.current = LoginItemStatus::requiresApproval;
        const SettingsModel settings(desktop.platform);
        QVERIFY(settings.loginStatus() == LoginItemStatus::requiresApproval);
        QVERIFY(!settings.loginError());
        QVERIFY(desktop.loginItem.requests.isEmpty());
    }

    void registeringAtLoginReadsTheStatusAgain() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QSignalSpy changed(&settings, &SettingsModel::loginChanged);
        settings.setLogin(true);
        QVERIFY(settings.loginStatus() == LoginItemStatus::enabled);
        settings.setLogin(false);
        QVERIFY(settings.loginStatus() == LoginItemStatus::notRegistered);
        QCOMPARE(desktop.loginItem.requests, (QList<bool>{true, false}));
        QCOMPARE(changed.size(), 2);
    }

    void aFailedRegistrationKeepsItsTextUntilTheNextSuccess() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        desktop.loginItem.failure = "The folder cannot be written – „autostart“";
        // The status is read again after a failure too.
        desktop.loginItem.current = LoginItemStatus::notFound;
        settings.setLogin(true);
        QCOMPARE(settings.loginError(),
                 std::optional(QStringLiteral("The folder cannot be written – „autostart“")));
        QVERIFY(settings.loginStatus() == LoginItemStatus::notFound);
        desktop.loginItem.failure.reset();
        settings.setLogin(true);
        QVERIFY(!settings.loginError());
        QVERIFY(settings.loginStatus() == LoginItemStatus::enabled);
    }

    void theAppearanceChoosesTheColourScheme() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QVERIFY(!settings.colorScheme());
        const auto choose = [&](const char* appearance) {
            auto preferences = settings.preferences();
            preferences.appearance = QString::fromLatin1(appearance);
            settings.setPreferences(preferences);
            return settings.colorScheme();
        };
        QVERIFY(choose("dark") == SettingsModel::ColorScheme::dark);
        QVERIFY(choose("light") == SettingsModel::ColorScheme::light);
        QVERIFY(choose("purple") == SettingsModel::ColorScheme::light);
        QVERIFY(!choose("system"));
    }

    void onlyTheSystemsAppearanceFollowsTheDesktop() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        QSignalSpy changed(&settings, &SettingsModel::darkChanged);
        QVERIFY(!settings.dark());
        desktop.systemEvents.setPrefersDark(true);
        QVERIFY(settings.dark());
        QCOMPARE(changed.size(), 1);

        auto preferences = settings.preferences();
        preferences.appearance = QStringLiteral("light");
        settings.setPreferences(preferences);
        QVERIFY(!settings.dark());
        QCOMPARE(changed.size(), 2);
        desktop.systemEvents.setPrefersDark(false);
        desktop.systemEvents.setPrefersDark(true);
        QVERIFY(!settings.dark());
        QCOMPARE(changed.size(), 2);
    }

    void onlyBuiltCardsThatAreNotHiddenAreShown() {
        FakePlatform desktop;
        SettingsModel settings(desktop.platform);
        auto built = orvane::builtWorkspaceCards();
        QCOMPARE(settings.visibleCards(), built);
        QCOMPARE(settings.visibleCardNames().front(), QStringLiteral("tasks"));
        QCOMPARE(settings.visibleCardNames().size(), built.size());
        auto preferences = settings.preferences();
        preferences.hiddenCards = {WorkspaceCard::tasks};
        settings.setPreferences(preferences);
        built.removeOne(WorkspaceCard::tasks);
        QCOMPARE(settings.visibleCards(), built);
        preferences.hiddenCards = orvane::allWorkspaceCards();
        settings.setPreferences(preferences);
        QCOMPARE(settings.visibleCards(), Cards());
        QCOMPARE(settings.visibleCardNames(), QStringList());
    }
};

QTEST_GUILESS_MAIN(SettingsModelTests)
#include "SettingsModelTests.moc"
