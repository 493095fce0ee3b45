#include "App/offlineActs.h"
#include "App/offlineScenes.h"

namespace orvane::offline {

namespace {

using planner::FocusMode;
using Scenes = std::map<QString, Scene>;

void prefer(Stage& stage, const std::function<void(Preferences&)>& change) {
    auto preferences = stage.model->settings()->preferences();
    change(preferences);
    stage.model->settings()->setPreferences(preferences);
}

void monospaced(Stage& stage) {
    prefer(stage, [](Preferences& p) { p.clockStyle = QStringLiteral("monospaced"); });
}

void wide(Stage& stage, double width) {
    prefer(stage, [=](Preferences& p) { p.cardWidth = width; });
}

void look(Stage& stage, const char* appearance) {
    prefer(stage, [=](Preferences& p) { p.appearance = QLatin1String(appearance); });
}

planner::PlannerTask task(Stage& stage, std::size_t index) {
    return stage.model->incompleteTasks().at(index);
}

/// Starts a session on the task at `index` and lets `spent` seconds of it pass.
void start(Stage& stage, FocusMode mode, double spent, std::size_t index = 2, int minutes = 25) {
    stage.model->focus()->start(task(stage, index), mode, minutes);
    stage.desk.clock.advance(spent);
    stage.desk.settle();
}

void countDown(Stage& stage) {
    start(stage, FocusMode::countdown, 25 * 60 - 1122);
}

void pause(Stage& stage) {
    countDown(stage);
    stage.model->focus()->pause();
}

void countUp(Stage& stage) {
    start(stage, FocusMode::stopwatch, 3948);
}

/// Runs a session and opens its planner again, as after a crash.
void recover(Stage& stage, std::size_t index) {
    auto session = planner::FocusSession(task(stage, index).id, task(stage, index).title,
                                         FocusMode::countdown, 1500, stage.desk.clock.now());
    session.segments = {{stage.desk.clock.now(), 1135}};
    stage.model->focus()->restore(session);
}

void press(Stage& stage, const char* name, double part = 0.5) {
    const auto* item = stage.find(name);
    click(stage, item->mapToScene({item->width() * part, item->height() / 2}));
}

void choose(Stage& stage, std::size_t index = 2) {
    stage.find("focusCard")->setProperty("selected", QString::fromStdString(task(stage, index).id.text()));
    wait(200);
}

void search(Stage& stage, const char* text) {
    choose(stage);
    press(stage, "taskChooser");
    type(stage, QLatin1String(text));
}

void custom(Stage& stage) {
    choose(stage);
    press(stage, "customDuration");
    for (int i = 0; i < 15; ++i) key(stage, Qt::Key_Up);
}

void tabTo(Stage& stage, int stops) {
    stage.model->requestFocus();
    for (int i = 0; i < stops; ++i) key(stage, Qt::Key_Tab);
    wait(200);
}

void low(Stage& stage) {
    stage.size = {650, 500};
}

void lower(Stage& stage) {
    stage.size = {650, 400};
}

Scenes setups() {
    return {{"focus-setup", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { choose(s); }}},
            {"focus-no-task", {Window::panel, ordinaryDay}},
            {"focus-no-tasks", {Window::panel, emptyPlanner}},
            {"focus-stopwatch",
             {Window::panel, ordinaryDay, idle, idle,
              [](Stage& s) {
                  choose(s);
                  press(s, "focusMode", 0.75);
              }}},
            {"focus-mono", {Window::panel, ordinaryDay, idle, monospaced, [](Stage& s) { choose(s); }}},
            {"focus-long-choice", {Window::panel, longTitles, idle, idle, [](Stage& s) { choose(s, 0); }}},
            {"focus-rtl-choice", {Window::panel, longTitles, idle, idle, [](Stage& s) { choose(s, 2); }}},
            {"focus-three-hours",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) { prefer(s, [](Preferences& p) { p.defaultMinutes = 180; }); }}},
            {"focus-keyboard", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) {
                                    choose(s);
                                    tabTo(s, 9);
                                }}}};
}

Scenes popovers() {
    return {
        {"focus-custom", {Window::panel, ordinaryDay, idle, idle, custom}},
        {"focus-custom-narrow", {Window::panel, ordinaryDay, idle, [](Stage& s) { wide(s, 230); }, custom}},
        {"focus-chooser", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { search(s, ""); }}},
        {"focus-chooser-found", {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { search(s, "RE"); }}},
        {"focus-chooser-nothing",
         {Window::panel, ordinaryDay, idle, idle, [](Stage& s) { search(s, "garden"); }}},
        {"focus-chooser-long", {Window::panel, longTitles, idle, idle, [](Stage& s) { search(s, ""); }}},
        {"focus-chooser-many",
         {Window::panel, [] { return manyTasks(10'000); }, idle, idle,
          [](Stage& s) {
              search(s, "5");
              for (int i = 0; i < 7; ++i) key(s, Qt::Key_Down);
              wait(100);
          }}},
        {"focus-chooser-low", {Window::panel, ordinaryDay, lower, idle, [](Stage& s) {
                                   choose(s);
                                   tabTo(s, 8);
                                   key(s, Qt::Key_Space);
                                   wait(200);
                               }}}};
}

Scenes sessions() {
    return {
        {"focus-running", {Window::panel, ordinaryDay, idle, countDown}},
        {"focus-paused", {Window::panel, ordinaryDay, idle, pause}},
        {"focus-counting-up", {Window::panel, ordinaryDay, idle, countUp}},
        {"focus-counting-up-mono",
         {Window::panel, ordinaryDay, idle,
          [](Stage& s) {
              monospaced(s);
              countUp(s);
          }}},
        {"focus-day",
         {Window::panel, ordinaryDay, idle, [](Stage& s) { start(s, FocusMode::stopwatch, 86'399); }}},
        {"focus-recovered", {Window::panel, ordinaryDay, idle, [](Stage& s) { recover(s, 2); }}},
        {"focus-recovered-narrow",
         {Window::panel, longTitles, idle,
          [](Stage& s) {
              wide(s, 230);
              recover(s, 1);
          }}},
        {"focus-long-title",
         {Window::panel, longTitles, idle, [](Stage& s) { start(s, FocusMode::countdown, 300, 0); }}},
        {"focus-rtl-title",
         {Window::panel, longTitles, idle, [](Stage& s) { start(s, FocusMode::countdown, 300, 2); }}},
        {"focus-session-keyboard", {Window::panel, ordinaryDay, idle, pause, [](Stage& s) { tabTo(s, 3); }}}};
}

Scenes sizes() {
    return {{"focus-narrow",
             {Window::panel, ordinaryDay, idle, [](Stage& s) { wide(s, 230); }, [](Stage& s) { choose(s); }}},
            {"focus-narrow-session",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  wide(s, 230);
                  pause(s);
              }}},
            {"focus-wide",
             {Window::panel, ordinaryDay, idle, [](Stage& s) { wide(s, 380); }, [](Stage& s) { choose(s); }}},
            {"focus-wide-session",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  wide(s, 380);
                  pause(s);
              }}},
            {"focus-low", {Window::panel, ordinaryDay, low, idle, [](Stage& s) { choose(s); }}},
            {"focus-low-session", {Window::panel, ordinaryDay, low, countUp}},
            {"focus-lower", {Window::panel, ordinaryDay, lower, idle, [](Stage& s) { choose(s); }}},
            {"focus-lower-keyboard",
             {Window::panel, ordinaryDay, lower, idle,
              [](Stage& s) {
                  choose(s);
                  tabTo(s, 9);
              }}},
            {"focus-lower-session", {Window::panel, ordinaryDay, lower, pause}}};
}

Scenes largeOnes() {
    Scenes all;
    for (const char* shade : {"light", "dark"}) {
        const auto name = [&](const char* state) {
            return QStringLiteral("focus-large-%1-%2").arg(QLatin1String(shade), QLatin1String(state));
        };
        const auto add = [&](const char* state, const std::function<void(Stage&)>& model,
                             const std::function<void(Stage&)>& act) {
            all[name(state)] = {Window::dashboard, ordinaryDay, idle,
                                [=](Stage& s) {
                                    look(s, shade);
                                    model(s);
                                },
                                act};
        };
        add("setup", idle, [](Stage& s) { choose(s); });
        add(
            "no-tasks",
            [](Stage& s) {
                while (!s.model->incompleteTasks().empty()) s.model->toggle(task(s, 0));
            },
            idle);
        add("custom", idle, custom);
        add("chooser", idle, [](Stage& s) { search(s, ""); });
        add("running", countDown, idle);
        add("paused", pause, idle);
        add("counting-up", countUp, idle);
        add(
            "recovered", [](Stage& s) { recover(s, 2); }, idle);
        add(
            "mono",
            [](Stage& s) {
                monospaced(s);
                countUp(s);
            },
            idle);
    }
    return all;
}

} // namespace

std::map<QString, Scene> focusScenes() {
    Scenes all;
    for (auto* group : {setups, popovers, sessions, sizes, largeOnes}) all.merge(group());
    return all;
}

} // namespace orvane::offline
