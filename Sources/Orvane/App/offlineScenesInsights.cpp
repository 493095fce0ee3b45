#include "App/offlineActs.h"
#include "App/offlineScenes.h"
#include "Doubles/PastPlanner.h"

#include <array>

namespace orvane::offline {

namespace {

using planner::PlannerSnapshot;
using test::PastPlanner;
using Page = NavigationModel::DashboardPage;

PlannerSnapshot weekOf(const std::array<double, 7>& minutes, int tasks) {
    const test::FakeClock clock;
    PastPlanner past(clock);
    for (int index = 0; index < tasks; ++index) past.complete(index % 7, 1, "Task");
    for (int index = 0; index < 7; ++index)
        if (minutes[std::size_t(index)] > 0) past.focus(6 - index, 0.25, "Task", minutes[std::size_t(index)]);
    return past.snapshot;
}

PlannerSnapshot ordinaryWeek() {
    return weekOf({50, 75, 0, 25, 90, 60, 31}, 14);
}

PlannerSnapshot extremeWeek() {
    return weekOf({1420, 0.5, 1100, 0, 3, 720.9, 100}, 1234);
}

PlannerSnapshot ordinaryYesterday() {
    const test::FakeClock clock;
    PastPlanner past(clock);
    past.snapshot = ordinaryDay();
    double hour = 9;
    for (const auto* title :
         {"Print the folded samples", "Morning pages", "Call back Dr. Okafor", "Renew the parking permit"})
        past.complete(1, ++hour, title);
    past.focus(1, 9, "Print the folded samples", 25);
    past.focus(1, 11, "Draft the opening paragraph of the workshop talk", 45);
    past.focus(1, 15, "Sort the photographs for the reading evening", 12.9, planner::FocusStatus::paused);
    past.note(1, "Call with the printer went well. They can do the folded version in a week.\n\nSend the "
                 "measurements\n\nRemember how quiet the reading room is before nine.");
    return past.snapshot;
}

PlannerSnapshot longYesterday() {
    const test::FakeClock clock;
    PastPlanner past(clock);
    for (const auto& task : longTitles().tasks) {
        past.complete(1, 12, task.title);
        past.focus(1, 9, task.title, 1400);
    }
    std::string text;
    for (int line = 1; line <= 60; ++line)
        text += "Line " + std::to_string(line) + " of a note that says a little more than others do.\n";
    past.note(1, text + "והשורה האחרונה");
    return past.snapshot;
}

PlannerSnapshot busyYesterday() {
    const test::FakeClock clock;
    PastPlanner past(clock);
    for (int index = 1; index <= 2000; ++index) past.complete(1, 12, "Task " + std::to_string(index));
    past.focus(1, 9, "Task 1", 25);
    return past.snapshot;
}

auto onPage(Page page, const char* appearance) {
    return [=](Stage& stage) {
        stage.navigation.setPage(page);
        auto preferences = stage.model->settings()->preferences();
        preferences.appearance = QString::fromLatin1(appearance);
        stage.model->settings()->setPreferences(preferences);
    };
}

/// The window's size, unless the command gives another.
auto sized(int width, int height) {
    return [=](Stage& stage) {
        if (!stage.size.isValid()) stage.size = {width, height};
    };
}

void showYesterday(Stage& stage) {
    const auto day = QString::fromStdString(PastPlanner(stage.desk.clock).day(1));
    QMetaObject::invokeMethod(stage.find("dateButton"), "picked", Q_ARG(QString, day));
    wait(50);
}

void openMonth(Stage& stage) {
    const auto* button = stage.find("dateButton");
    click(stage, button->mapToScene({20, button->height() / 2}));
}

std::map<QString, Scene> insights() {
    const auto light = onPage(Page::insights, "light");
    const auto dark = onPage(Page::insights, "dark");
    return {{"insights-light", {Window::dashboard, ordinaryWeek, idle, light}},
            {"insights-dark", {Window::dashboard, ordinaryWeek, idle, dark}},
            {"insights-empty", {Window::dashboard, emptyPlanner, idle, light}},
            {"insights-extreme", {Window::dashboard, extremeWeek, idle, dark}},
            {"insights-low", {Window::dashboard, ordinaryWeek, sized(860, 580), light}},
            {"insights-loading", {Window::dashboard, ordinaryWeek, onPage(Page::insights, "light")}},
            {"insights-keyboard", {Window::dashboard, ordinaryWeek, idle, light, [](Stage& s) {
                                       s.find("weekChart")->forceActiveFocus(Qt::TabFocusReason);
                                       key(s, Qt::Key_Left);
                                       key(s, Qt::Key_Left);
                                       wait(800);
                                   }}}};
}

std::map<QString, Scene> history() {
    const auto light = onPage(Page::history, "light");
    const auto dark = onPage(Page::history, "dark");
    return {
        {"history-light", {Window::dashboard, ordinaryYesterday, idle, light, showYesterday}},
        {"history-dark", {Window::dashboard, ordinaryYesterday, idle, dark, showYesterday}},
        {"history-empty", {Window::dashboard, emptyPlanner, idle, light}},
        {"history-empty-dark", {Window::dashboard, emptyPlanner, idle, dark, openMonth}},
        {"history-month",
         {Window::dashboard, ordinaryYesterday, idle, light,
          [](Stage& s) {
              showYesterday(s);
              openMonth(s);
          }}},
        {"history-month-keyboard",
         {Window::dashboard, ordinaryYesterday, idle, dark,
          [](Stage& s) {
              s.find("dateButton")->forceActiveFocus(Qt::TabFocusReason);
              key(s, Qt::Key_Return);
              key(s, Qt::Key_Down);
              key(s, Qt::Key_PageUp);
              wait(200);
          }}},
        {"history-narrow", {Window::dashboard, ordinaryYesterday, sized(1000, 640), light, showYesterday}},
        {"history-low", {Window::dashboard, ordinaryYesterday, sized(860, 580), dark, showYesterday}},
        {"history-long", {Window::dashboard, longYesterday, idle, light, showYesterday}},
        {"history-long-narrow", {Window::dashboard, longYesterday, sized(860, 580), dark, showYesterday}},
        {"history-many", {Window::dashboard, busyYesterday, idle, dark, [](Stage& s) {
                              showYesterday(s);
                              s.find("historyRows")->forceActiveFocus(Qt::TabFocusReason);
                              key(s, Qt::Key_End);
                              key(s, Qt::Key_Up);
                              wait(200);
                          }}}};
}

} // namespace

std::map<QString, Scene> insightsScenes() {
    auto all = insights();
    all.merge(history());
    return all;
}

} // namespace orvane::offline
