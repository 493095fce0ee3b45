#include "App/offlineActs.h"
#include "App/offlineScenes.h"

#include <array>

namespace orvane::offline {

namespace {

using planner::FocusMode;
using planner::FocusSession;
using planner::FocusStatus;
using planner::PlannerSnapshot;
using planner::PlannerTask;
using Page = NavigationModel::DashboardPage;

/// The hour of the day `daysAgo` before today.
planner::Instant at(int daysAgo, double hour) {
    const test::FakeClock clock;
    return *clock.calendar().startOfDay(clock.now(), -daysAgo) + hour * 3600;
}

void complete(PlannerSnapshot& planner, int daysAgo, const std::string& title) {
    PlannerTask task(planner::Uuid::random(), title, at(daysAgo, 8),
                     static_cast<std::int64_t>(planner.tasks.size()));
    task.completedAt = at(daysAgo, 9) + static_cast<double>(planner.tasks.size());
    planner.tasks.push_back(std::move(task));
}

void focus(PlannerSnapshot& planner, int daysAgo, double hour, const std::string& title, double minutes,
           FocusStatus status = FocusStatus::finished) {
    FocusSession session(planner::Uuid::random(), title, FocusMode::stopwatch, 1500, at(daysAgo, hour));
    session.status = status;
    session.segments.push_back({at(daysAgo, hour), minutes * 60});
    planner.sessions.push_back(std::move(session));
}

void note(PlannerSnapshot& planner, int daysAgo, const std::string& text) {
    const test::FakeClock clock;
    const auto day = *clock.calendar().day(at(daysAgo, 12));
    const QDate date(day.year, int(day.month), int(day.day));
    planner.notes.push_back({date.toString(Qt::ISODate).toStdString(), text, at(daysAgo, 12)});
}

PlannerSnapshot weekOf(const std::array<double, 7>& minutes, int tasks) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index) complete(planner, index % 7, "Task");
    for (int index = 0; index < 7; ++index)
        if (minutes[std::size_t(index)] > 0)
            focus(planner, 6 - index, 0.25, "Task", minutes[std::size_t(index)]);
    return planner;
}

PlannerSnapshot ordinaryWeek() {
    return weekOf({50, 75, 0, 25, 90, 60, 31}, 14);
}

PlannerSnapshot extremeWeek() {
    return weekOf({1440, 0.5, 1100, 0, 3, 720.9, 100}, 1234);
}

PlannerSnapshot ordinaryYesterday() {
    auto planner = ordinaryDay();
    for (const auto* title :
         {"Print the folded samples", "Morning pages", "Call back Dr. Okafor", "Renew the parking permit"})
        complete(planner, 1, title);
    focus(planner, 1, 9, "Print the folded samples", 25);
    focus(planner, 1, 11, "Draft the opening paragraph of the workshop talk", 45);
    focus(planner, 1, 15, "Sort the photographs for the reading evening", 12.9, FocusStatus::paused);
    note(planner, 1,
         "Call with the printer went well. They can do the folded version in a week.\n\nSend the "
         "measurements\n\nRemember how quiet the reading room is before nine.");
    return planner;
}

PlannerSnapshot longYesterday() {
    PlannerSnapshot planner;
    for (const auto& task : longTitles().tasks) {
        complete(planner, 1, task.title);
        focus(planner, 1, 9, task.title, 1400);
    }
    std::string text;
    for (int line = 1; line <= 60; ++line)
        text += "Line " + std::to_string(line) + " of a note that says a little more than others do.\n";
    note(planner, 1, text + "והשורה האחרונה");
    return planner;
}

PlannerSnapshot busyYesterday() {
    PlannerSnapshot planner;
    for (int index = 1; index <= 2000; ++index) complete(planner, 1, "Task " + std::to_string(index));
    focus(planner, 1, 9, "Task 1", 25);
    return planner;
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
    const test::FakeClock clock;
    const auto day = *clock.calendar().day(at(1, 12));
    QMetaObject::invokeMethod(
        stage.find("dateButton"), "picked",
        Q_ARG(QString, QDate(day.year, int(day.month), int(day.day)).toString(Qt::ISODate)));
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
