#include "App/offlineActs.h"
#include "App/offlineScenes.h"

namespace orvane::offline {

namespace {

using test::FakeScreens;

void showSettings(Stage& stage, const char* appearance) {
    stage.navigation.setPage(NavigationModel::DashboardPage::settings);
    stage.model->settings()->setAppearance(QString::fromLatin1(appearance));
}

void light(Stage& stage) {
    showSettings(stage, "light");
}

void dark(Stage& stage) {
    showSettings(stage, "dark");
}

/// The window's size, unless the command gives another.
auto sized(int width, int height) {
    return [=](Stage& stage) {
        if (!stage.size.isValid()) stage.size = {width, height};
    };
}

void attach(Stage& stage) {
    stage.desk.screens.set({FakeScreens::plain(1, "eDP-1"), FakeScreens::plain(2, "DP-2")});
}

void attachLongNames(Stage& stage) {
    stage.desk.screens.set(
        {FakeScreens::plain(1, "Aurora Optics ProVision Ultra-Wide 49 with a very long model name, DP-1"),
         FakeScreens::plain(2, "תצוגה ראשית של חדר הישיבות בקומה השנייה, HDMI-1")});
    stage.model->settings()->setDisplayID(1);
}

void disconnect(Stage& stage) {
    dark(stage);
    stage.desk.screens.set({FakeScreens::plain(1, "eDP-1")});
    stage.model->settings()->setDisplayID(9);
    stage.model->settings()->setCardShown(QStringLiteral("notes"), false);
}

void press(Stage& stage, const char* name) {
    const auto* item = stage.find(name);
    click(stage, item->mapToScene({item->width() / 2, item->height() / 2}));
}

void pressPicker(Stage& stage) {
    press(stage, "displayPicker");
}

void tab(Stage& stage, int times) {
    stage.view.rootObject()->forceActiveFocus();
    for (int i = 0; i < times; ++i) key(stage, Qt::Key_Tab);
    wait(200);
}

} // namespace

std::map<QString, Scene> settingsScenes() {
    return {
        {"settings-light", {Window::dashboard, ordinaryDay, sized(1320, 1100), light}},
        {"settings-dark", {Window::dashboard, ordinaryDay, sized(1320, 1100), dark}},
        {"settings-narrow", {Window::dashboard, ordinaryDay, sized(860, 1200), light}},
        {"settings-low", {Window::dashboard, ordinaryDay, sized(1320, 580), light}},
        {"settings-least-keyboard",
         {Window::dashboard, ordinaryDay, sized(860, 580), dark, [](Stage& s) { tab(s, 14); }}},
        {"settings-picker",
         {Window::dashboard, ordinaryDay, sized(1320, 1100),
          [](Stage& s) {
              dark(s);
              attach(s);
          },
          pressPicker}},
        {"settings-picker-keyboard",
         {Window::dashboard, ordinaryDay, sized(1320, 1100),
          [](Stage& s) {
              light(s);
              attach(s);
          },
          [](Stage& s) {
              s.find("displayPicker")->forceActiveFocus(Qt::TabFocusReason);
              key(s, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
              key(s, Qt::Key_Down);
              wait(200);
          }}},
        {"settings-long-names",
         {Window::dashboard, ordinaryDay, sized(1320, 1100),
          [](Stage& s) {
              light(s);
              attachLongNames(s);
          },
          pressPicker}},
        {"settings-disconnected", {Window::dashboard, ordinaryDay, sized(1320, 1100), disconnect}},
        {"settings-moved",
         {Window::dashboard, ordinaryDay, sized(1320, 1100), dark,
          [](Stage& s) {
              tab(s, 4);
              key(s, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
              key(s, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
              wait(800);
          }}},
        {"settings-loading", {Window::dashboard, ordinaryDay, sized(1320, 1100), light}},
    };
}

} // namespace orvane::offline
