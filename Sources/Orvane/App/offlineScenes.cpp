#include "App/offlineScenes.h"

#include "App/offlineActs.h"

#include <system_error>

namespace orvane::offline {

namespace {

using Scenes = std::map<QString, Scene>;

void startFocus(Stage& stage, double spent) {
    const auto task = stage.model->incompleteTasks().front();
    stage.model->focus()->start(task, planner::FocusMode::countdown, 80);
    stage.desk.clock.advance(80 * 60 - spent);
    stage.desk.settle();
}

void removeTask(Stage& stage) {
    stage.model->deleteTask(stage.model->incompleteTasks().front());
}

void giveNotch(Stage& stage) {
    stage.notch = 185;
    stage.inset = 37;
}

void forceLight(Stage& stage) {
    auto preferences = stage.model->settings()->preferences();
    preferences.appearance = QStringLiteral("light");
    stage.model->settings()->setPreferences(preferences);
}

void forceDark(Stage& stage) {
    auto preferences = stage.model->settings()->preferences();
    preferences.appearance = QStringLiteral("dark");
    stage.model->settings()->setPreferences(preferences);
}

void narrow(Stage& stage) {
    auto preferences = stage.model->settings()->preferences();
    preferences.cardWidth = 230;
    stage.model->settings()->setPreferences(preferences);
}

void hideCards(Stage& stage) {
    auto preferences = stage.model->settings()->preferences();
    preferences.hiddenCards = allWorkspaceCards();
    stage.model->settings()->setPreferences(preferences);
}

void failOpening(Stage& stage) {
    stage.desk.dataFolder.failure = std::make_error_code(std::errc::permission_denied);
}

const QString& longError() {
    static const QString text =
        QStringLiteral("The task is saved, but its reminder could not be scheduled: the notification service "
                       "of this desktop did not answer within ten seconds. The reminder will be tried again "
                       "with the next save.");
    return text;
}

Scenes strips() {
    return {{"strip-idle", {Window::panel, ordinaryDay, idle, idle, idle, false}},
            {"strip-running",
             {Window::panel, ordinaryDay, idle, [](Stage& s) { startFocus(s, 1122); }, idle, false}},
            {"strip-paused",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  startFocus(s, 1122);
                  s.model->focus()->pause();
              },
              idle, false}},
            {"strip-paused-long",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  startFocus(s, 4722);
                  s.model->focus()->pause();
              },
              idle, false}},
            {"strip-finished",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  startFocus(s, 1122);
                  s.model->focus()->finish();
              },
              idle, false}},
            {"strip-notch", {Window::panel, ordinaryDay, giveNotch, idle, idle, false}},
            {"strip-notch-paused",
             {Window::panel, ordinaryDay, giveNotch,
              [](Stage& s) {
                  startFocus(s, 4722);
                  s.model->focus()->pause();
              },
              idle, false}}};
}

Scenes panels() {
    return {{"panel", {Window::panel}},
            {"panel-notch", {Window::panel, ordinaryDay, giveNotch}},
            {"panel-low",
             {Window::panel, ordinaryDay,
              [](Stage& s) {
                  s.size = {650, 400};
              }}},
            {"panel-loading",
             {Window::panel, ordinaryDay,
              [](Stage& s) {
                  s.size = {650, 580};
              }}},
            {"clean-slate", {Window::panel, ordinaryDay, idle, hideCards}}};
}

Scenes lists() {
    return {{"tasks-empty", {Window::panel, emptyPlanner}},
            {"tasks-many",
             {Window::panel, [] { return manyTasks(40); }, idle, idle, [](Stage& s) { hoverRow(s, 2); }}},
            {"tasks-long", {Window::panel, longTitles}},
            {"tasks-long-tip",
             {Window::panel, longTitles, idle, idle,
              [](Stage& s) {
                  hoverRow(s, 1);
                  wait(800);
              }}},
            {"tasks-narrow", {Window::panel, ordinaryDay, idle, narrow}},
            {"tasks-hover", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { hoverRow(s, 1); }}},
            {"tasks-tip", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) {
                               hoverRow(s, 1, -16);
                               wait(800);
                           }}}};
}

Scenes acts() {
    return {{"tasks-typing",
             {Window::panel, ordinaryDay, idle, idle,
              [](Stage& s) {
                  s.model->requestFocus();
                  type(s, QStringLiteral("Call the florist"));
              }}},
            {"tasks-rename",
             {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { click(s, rowPoint(s, 3, 100), 2); }}},
            {"tasks-menu",
             {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { click(s, rowPoint(s, 0, -16)); }}},
            {"tasks-menu-keyboard",
             {Window::panel, ordinaryDay, idle, idle,
              [](Stage& s) {
                  s.model->requestFocus();
                  key(s, Qt::Key_Backtab, Qt::ShiftModifier);
                  key(s, Qt::Key_Down);
                  key(s, Qt::Key_Menu);
                  key(s, Qt::Key_Down);
                  wait(200);
              }}},
            {"tasks-keyboard",
             {Window::panel, ordinaryDay, idle, idle,
              [](Stage& s) {
                  s.model->requestFocus();
                  key(s, Qt::Key_Backtab, Qt::ShiftModifier);
                  for (int i = 0; i < 3; ++i) key(s, Qt::Key_Down);
              }}},
            {"tasks-tabs-keyboard",
             {Window::panel, ordinaryDay, idle, idle,
              [](Stage& s) {
                  s.model->requestFocus();
                  for (int i = 0; i < 2; ++i) key(s, Qt::Key_Backtab, Qt::ShiftModifier);
              }}},
            {"tasks-drag", {Window::panel, ordinaryDay, idle, idle, dragRow}},
            {"tasks-completed", {Window::panel, ordinaryDay, idle, idle, showCompleted}},
            {"tasks-completed-empty", {Window::panel, emptyPlanner, idle, idle, showCompleted}}};
}

Scenes footers() {
    return {{"footer-undo", {Window::panel, ordinaryDay, idle, removeTask}},
            {"footer-error",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) { s.model->setError(QStringLiteral("Choose a reminder time in the future.")); }}},
            {"footer-long-error",
             {Window::panel, ordinaryDay, idle, [](Stage& s) { s.model->setError(longError()); }}},
            {"footer-notice",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  s.model->setNotice(
                      QStringLiteral("Option–N is already in use. Open Orvane from the menu bar."));
              }}},
            {"header-keyboard", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) {
                                     s.model->requestFocus();
                                     for (int i = 0; i < 4; ++i) key(s, Qt::Key_Backtab, Qt::ShiftModifier);
                                     wait(800);
                                 }}}};
}

Scenes dashboards() {
    return {
        {"dashboard-light", {Window::dashboard, ordinaryDay, idle, forceLight}},
        {"dashboard-dark", {Window::dashboard, ordinaryDay, idle, forceDark}},
        {"dashboard-light-menu",
         {Window::dashboard, ordinaryDay, idle, forceLight, [](Stage& s) { click(s, rowPoint(s, 1, -16)); }}},
        {"dashboard-light-error",
         {Window::dashboard, ordinaryDay, idle,
          [](Stage& s) {
              forceLight(s);
              s.model->setError(longError());
          }}},
        {"dashboard-dark-error",
         {Window::dashboard, ordinaryDay, idle,
          [](Stage& s) {
              forceDark(s);
              s.model->setError(longError());
          }}},
        {"dashboard-empty", {Window::dashboard, emptyPlanner, idle, forceLight}},
        {"dashboard-loading", {Window::dashboard, ordinaryDay, idle, forceLight}},
        {"dashboard-failed", {Window::dashboard, ordinaryDay, failOpening, forceDark}},
        {"dashboard-failed-light", {Window::dashboard, ordinaryDay, failOpening, forceLight}},
        {"alert-light", {Window::alert, emptyPlanner, idle, forceLight}},
        {"alert-dark", {Window::alert, emptyPlanner, idle, forceDark}}};
}

} // namespace

std::map<QString, Scene> scenes() {
    Scenes all;
    for (auto* group : {strips, panels, lists, acts, footers, dashboards, focusScenes, settingsScenes,
                        insightsScenes, noteScenes})
        all.merge(group());
    return all;
}

} // namespace orvane::offline
