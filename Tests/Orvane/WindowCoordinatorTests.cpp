#include "Windows/WindowCoordinator.h"

#include "WindowFixture.h"

#include <QTest>

using namespace orvane;
using namespace orvane::test;
using Page = NavigationModel::DashboardPage;

class WindowCoordinatorTests : public QObject {
    Q_OBJECT

private slots:
    void theStripIsShownAtTheTopCentreFromTheStart() {
        WindowFixture desk;
        QVERIFY(desk.panel.shownAt.has_value());
        QVERIFY(!desk.state.expanded());
        QCOMPARE(desk.state.target().size(), QSizeF(200, 32));
        QCOMPARE(desk.panel.shownAt->x + desk.state.target().center().x(), 1512.0 / 2);
        QCOMPARE(desk.panel.shownAt->maxY(), 982.0);
    }

    void aPointerThatRestsOnTheStripOpensThePanel() {
        WindowFixture desk;
        desk.coordinator->entered();
        desk.advance(0.17);
        QVERIFY(!desk.state.expanded());
        desk.advance(0.02);
        QVERIFY(desk.state.expanded());
        QVERIFY(!desk.panel.keyboard);
        QVERIFY(desk.panel.watching);
    }

    void enteringAndLeavingTheStripWithinTheDelayNeverOpensThePanel() {
        WindowFixture desk;
        desk.coordinator->entered();
        desk.advance(0.17);
        desk.coordinator->exited();
        desk.advance(10);
        QVERIFY(!desk.state.expanded());
    }

    void enteringAgainStartsTheDelayAnew() {
        WindowFixture desk;
        desk.coordinator->entered();
        desk.advance(0.1);
        desk.coordinator->entered();
        desk.advance(0.1);
        QVERIFY(!desk.state.expanded());
        desk.advance(0.08);
        QVERIFY(desk.state.expanded());
    }

    void hoveringOpensNothingWhenThePreferenceIsOff() {
        WindowFixture desk;
        auto preferences = desk.model.model->settings()->preferences();
        preferences.hoverEnabled = false;
        desk.model.model->settings()->setPreferences(preferences);
        desk.hoverOpen();
        QVERIFY(!desk.state.expanded());
    }

    void leavingTheOpenPanelClosesItAfterTheDelay() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.coordinator->exited();
        desk.advance(0.39);
        QVERIFY(desk.state.expanded());
        desk.advance(0.02);
        QVERIFY(!desk.state.expanded());
        QVERIFY(!desk.panel.watching);
    }

    void aShortExcursionOutOfTheOpenPanelIsForgiven() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.coordinator->exited();
        desk.advance(0.3);
        desk.coordinator->entered();
        desk.advance(10);
        QVERIFY(desk.state.expanded());
    }

    void leavingTheOpenPanelWithAButtonHeldSchedulesNothing() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.panel.held = true;
        desk.coordinator->exited();
        desk.panel.held = false;
        desk.advance(10);
        QVERIFY(desk.state.expanded());
    }

    void aPanelBeingTypedIntoStaysOpenWhenThePointerLeaves() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.panel.keyboard = true;
        desk.coordinator->exited();
        desk.advance(10);
        QVERIFY(desk.state.expanded());
    }

    void theHotKeyOpensThePanelWithTheKeyboardInTheAddField() {
        WindowFixture desk;
        const int before = desk.model.model->focusRequest();
        desk.model.platform.hotKeys.press();
        QVERIFY(desk.state.expanded());
        QVERIFY(desk.panel.keyboard);
        QCOMPARE(desk.model.model->focusRequest(), before);
        desk.model.platform.clock.settle();
        QCOMPARE(desk.model.model->focusRequest(), before + 1);
    }

    void theHotKeyOnAnOpenPanelKeepsItOpenAndAsksForTheAddFieldAgain() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.model.platform.hotKeys.press();
        desk.model.platform.clock.settle();
        const int once = desk.model.model->focusRequest();
        desk.model.platform.hotKeys.press();
        desk.model.platform.clock.settle();
        QVERIFY(desk.state.expanded());
        QCOMPARE(desk.model.model->focusRequest(), once + 1);
    }

    void aHotKeyOpeningIsNotClosedByMovingThePointerAwayButByAPressOutside() {
        WindowFixture desk;
        desk.model.platform.hotKeys.press();
        desk.panel.keyboard = false;
        desk.coordinator->exited();
        desk.advance(10);
        QVERIFY(desk.state.expanded());
        desk.panel.pressOutside();
        QVERIFY(!desk.state.expanded());
    }

    void collapsingGivesTheKeyboardBack() {
        WindowFixture desk;
        desk.model.platform.hotKeys.press();
        desk.model.model->requestDismissal();
        QVERIFY(!desk.state.expanded());
        QVERIFY(!desk.panel.keyboard);
    }

    void aTakenHotKeyIsNoticedAndHoveringStillWorks() {
        ModelFixture model;
        model.platform.screens.set({FakeScreens::plain(7, "Plain")});
        model.platform.hotKeys.result = 10;
        model.load();
        PanelState state;
        NavigationModel navigation;
        FakePanelSurface panel;
        FakeDashboardSurface dashboard;
        WindowCoordinator coordinator(
            {*model.model, model.platform.platform, state, navigation, panel, dashboard});
        QCOMPARE(model.model->noticeText(),
                 QString::fromUtf8("Option–N is already in use. Open Orvane from the menu bar."));
        coordinator.entered();
        model.platform.clock.advance(0.18);
        QVERIFY(state.expanded());
    }

    void whereThereAreNoHotKeysNothingIsRegisteredAndNothingNoticed() {
        ModelFixture model;
        model.platform.hotKeys.present = false;
        PanelState state;
        NavigationModel navigation;
        FakePanelSurface panel;
        FakeDashboardSurface dashboard;
        const WindowCoordinator coordinator(
            {*model.model, model.platform.platform, state, navigation, panel, dashboard});
        QCOMPARE(model.platform.hotKeys.registrations, 0);
        QVERIFY(!model.model->notice());
    }

    void expandingBeforeThePlannerIsReadyShowsTheDashboardOnToday() {
        WindowFixture desk(false);
        desk.navigation.setPage(Page::history);
        desk.coordinator->expand(false);
        QVERIFY(!desk.state.expanded());
        QVERIFY(desk.dashboard.visible());
        QCOMPARE(desk.navigation.page(), Page::today);
        QCOMPARE(desk.dashboard.room->height, 945.0);
    }

    void hoveringDoesNothingWhileTheDashboardIsInFront() {
        WindowFixture desk;
        desk.model.model->requestDashboard();
        desk.hoverOpen();
        QVERIFY(!desk.state.expanded());
        desk.coordinator->expand(false);
        QVERIFY(!desk.state.expanded());
        QCOMPARE(desk.dashboard.shows, 1);
    }

    void theHotKeyPutsTheDashboardAwayAndOpensThePanel() {
        WindowFixture desk;
        desk.model.model->requestDashboard();
        desk.model.platform.hotKeys.press();
        QVERIFY(!desk.dashboard.visible());
        QVERIFY(desk.state.expanded());
    }

    void hoveringWorksAgainOnceTheDashboardHasLostTheKeyboardOrIsClosed() {
        WindowFixture desk;
        desk.model.model->requestDashboard();
        desk.dashboard.loseKeyboard();
        desk.hoverOpen();
        QVERIFY(desk.state.expanded());
        desk.model.model->requestDashboard();
        desk.dashboard.close();
        desk.hoverOpen();
        QVERIFY(desk.state.expanded());
    }

    void theSettingsPageKeepsHoveringOffForAsLongAsItIsVisible() {
        WindowFixture desk;
        desk.coordinator->showDashboard(Page::settings);
        desk.dashboard.loseKeyboard();
        desk.hoverOpen();
        QVERIFY(!desk.state.expanded());
        desk.dashboard.close();
        desk.hoverOpen();
        QVERIFY(desk.state.expanded());
    }

    void leavingTheSettingsPageBehindOtherWindowsLetsHoveringOpenAgain() {
        WindowFixture desk;
        desk.coordinator->showDashboard(Page::settings);
        desk.dashboard.loseKeyboard();
        desk.navigation.setPage(Page::today);
        desk.hoverOpen();
        QVERIFY(desk.state.expanded());
        desk.coordinator->collapse();
        desk.navigation.setPage(Page::settings);
        desk.hoverOpen();
        QVERIFY(!desk.state.expanded());
    }

    void showingTheDashboardClosesThePanel() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.model.model->requestDashboard();
        QVERIFY(!desk.state.expanded());
    }

    void whileADialogIsShownThePanelIsAwayAndStaysAway() {
        WindowFixture desk;
        desk.hoverOpen();
        desk.model.model->suppressPanel();
        QVERIFY(!desk.state.expanded());
        QVERIFY(!desk.panel.shownAt);
        desk.hoverOpen();
        desk.model.platform.hotKeys.press();
        desk.model.platform.screens.set({FakeScreens::plain(8, "Other")});
        QVERIFY(!desk.state.expanded());
        QVERIFY(!desk.panel.shownAt);
        desk.model.model->restorePanel();
        QVERIFY(desk.panel.shownAt.has_value());
        desk.hoverOpen();
        QVERIFY(desk.state.expanded());
    }

    void withoutADisplayNothingIsShownUntilOneComes() {
        WindowFixture desk;
        desk.model.platform.screens.set({});
        QVERIFY(!desk.panel.shownAt);
        desk.model.platform.screens.set({FakeScreens::plain(7, "Plain")});
        QVERIFY(desk.panel.shownAt.has_value());
    }

    void aChangedArrangementOrWorkspaceRepositionsWithoutAnimation() {
        WindowFixture desk;
        desk.hoverOpen();
        QVERIFY(desk.state.animated());
        auto moved = FakeScreens::plain(7, "Plain");
        moved.frame.x = moved.visible.x = -1512;
        desk.model.platform.screens.set({moved});
        QVERIFY(!desk.state.animated());
        QCOMPARE(desk.panel.shownAt->midX(), -756.0);
        const int shows = desk.panel.shows;
        emit desk.model.platform.systemEvents.activeSpaceChanged();
        QCOMPARE(desk.panel.shows, shows + 1);
        QVERIFY(!desk.state.animated());
    }

    void thePreferredDisplayHostsThePanelAndTheBuiltInOneStandsInForIt() {
        WindowFixture desk;
        auto external = FakeScreens::plain(1, "External");
        auto builtIn = FakeScreens::plain(2, "Built-in");
        builtIn.builtIn = true;
        builtIn.frame.x = builtIn.visible.x = 1512;
        auto preferred = FakeScreens::plain(3, "Preferred");
        preferred.frame.x = preferred.visible.x = 3024;
        auto preferences = desk.model.model->settings()->preferences();
        preferences.displayID = 3;
        desk.model.model->settings()->setPreferences(preferences);
        desk.model.platform.screens.set({external, builtIn, preferred});
        QCOMPARE(desk.panel.shownAt->midX(), 3024 + 756.0);
        desk.model.platform.screens.set({external, builtIn});
        QCOMPARE(desk.panel.shownAt->midX(), 1512 + 756.0);
        desk.model.platform.screens.set({external});
        QCOMPARE(desk.panel.shownAt->midX(), 756.0);
    }

    void aNotchIsAsWideAsTheGapBetweenTheAreasBesideIt() {
        WindowFixture desk;
        auto screen = FakeScreens::plain(7, "Plain");
        screen.topInset = 37;
        screen.auxiliaryTopLeft = planner::Rect{0, 945, 663.5, 37};
        screen.auxiliaryTopRight = planner::Rect{848.5, 945, 663.5, 37};
        desk.model.platform.screens.set({screen});
        QCOMPARE(desk.state.notchWidth(), 185.0);
        QCOMPARE(desk.state.topInset(), 37.0);
        QCOMPARE(desk.state.target().size(), QSizeF(357, 41));
    }

    void withoutAreasBesideItTheNotchWidthIsZeroAndTheStripIs200Wide() {
        WindowFixture desk;
        QCOMPARE(desk.state.notchWidth(), 0.0);
        QCOMPARE(desk.state.target().width(), 200.0);
    }

    void theWindowKeepsItsFrameWhenThePanelOpens() {
        WindowFixture desk;
        const auto before = desk.panel.shownAt;
        desk.hoverOpen();
        QCOMPARE(desk.panel.shownAt == before, true);
        QCOMPARE(desk.state.target().left(), 12.0);
        QCOMPARE(desk.state.target().right(), desk.panel.shownAt->width - 12);
    }

    void reducedMotionIsFollowedWhileTheProgramRuns() {
        WindowFixture desk;
        desk.model.platform.systemEvents.setReduceMotion(true);
        QVERIFY(desk.state.reduceMotion());
        desk.hoverOpen();
        QVERIFY(!desk.state.animated());
    }

    void stoppingTakesEverythingDown() {
        WindowFixture desk;
        desk.coordinator->entered();
        desk.coordinator->stop();
        desk.advance(10);
        QVERIFY(!desk.state.expanded());
        QVERIFY(!desk.panel.shownAt);
        QVERIFY(!desk.model.platform.hotKeys.registered());
        desk.model.platform.screens.set({FakeScreens::plain(8, "Other")});
        QVERIFY(!desk.panel.shownAt);
        QVERIFY(!desk.model.model->openDashboard);
    }
};

QTEST_GUILESS_MAIN(WindowCoordinatorTests)
#include "WindowCoordinatorTests.moc"
