// Prints how long each command keeps the main thread busy: the command itself and everything that
// follows on that thread until its save has settled and the reminders are in line. The store's own work
// is left out. And how long a preference takes, which is on disk when its control has changed.

#include "Doubles/PastPlanner.h"
#include "Model/HistoryModel.h"
#include "Model/InsightsModel.h"
#include "Model/TaskSearchModel.h"
#include "Orvane/ModelFixture.h"
#include "Platform/Linux/SettingsUserDefaults.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

using namespace orvane;
using namespace orvane::test;

namespace {

constexpr int rounds = 41;

/// Time on the wall, and the part of it in which this thread had the processor.
struct Spent {
    double wall = 0;
    double processor = 0;

    Spent& operator+=(const Spent& more) {
        wall += more.wall;
        processor += more.processor;
        return *this;
    }
};

double milliseconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

Spent spentOn(const std::function<void()>& action) {
    const Spent begin{milliseconds(CLOCK_MONOTONIC), milliseconds(CLOCK_THREAD_CPUTIME_ID)};
    action();
    return {milliseconds(CLOCK_MONOTONIC) - begin.wall,
            milliseconds(CLOCK_THREAD_CPUTIME_ID) - begin.processor};
}

/// The main thread's share of `command` and of all that it leads to.
Spent mainThread(ModelFixture& house, const std::function<void()>& command) {
    auto& worker = house.platform.storeExecutor;
    auto spent = spentOn(command);
    while (worker.work())
        spent += spentOn([&] {
            worker.tell();
            house.platform.notifications.answerAll();
        });
    return spent;
}

void report(ModelFixture& house, const char* name, const std::function<void(int)>& command) {
    std::vector<double> wall, processor;
    for (int round = 0; round < rounds; ++round) {
        const auto spent = mainThread(house, [&] { command(round); });
        wall.push_back(spent.wall);
        processor.push_back(spent.processor);
    }
    std::sort(wall.begin(), wall.end());
    std::sort(processor.begin(), processor.end());
    std::printf("%-28s %9.3f %9.3f %9.3f\n", name, wall[rounds / 2], processor[rounds / 2], wall.back());
}

/// A width that is changed and saved, and one that is dragged and saved at the end.
void measurePreferences() {
    const QTemporaryDir folder(QStringLiteral("./orvane-bench-XXXXXX"));
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    ModelFixture house;
    auto& desk = house.platform;
    SettingsUserDefaults defaults(desk.log);
    Platform platform{desk.clock,         desk.storeExecutor, desk.dataFolder, defaults,     desk.information,
                      desk.notifications, desk.events,        desk.loginItem,  desk.hotKeys, desk.screens,
                      desk.systemEvents,  desk.alerts,        desk.filePanels, desk.log};
    SettingsModel settings(platform);
    std::printf("\n%-28s %9s %9s %9s\n", "preferences, ms", "median", "processor", "worst");
    const auto change = [&](int round) { settings.setCardWidth(230 + 10 * (round % 16)); };
    report(house, "a change, until on disk", change);
    settings.setAdjusting(true);
    report(house, "one step of a drag", change);
}

void measure(unsigned count) {
    ModelFixture house;
    planner::PlannerSnapshot planner;
    for (unsigned i = 0; i < count; ++i) {
        auto task = plainTask(i);
        task.title = "A task whose title is about as long as usual, number " + std::to_string(i);
        planner.tasks.push_back(std::move(task));
    }
    house.store(planner);
    const auto loading = mainThread(house, [&] { house.model->load(); });
    std::printf("\n%-28s %9s %9s %9s\n", (std::to_string(count) + " tasks, ms").c_str(), "median",
                "processor", "worst");
    std::printf("%-28s %9.3f %9.3f\n", "load", loading.wall, loading.processor);
    auto& model = *house.model;
    const auto any = [&](int round) { return house.task(std::size_t(round) * 7919 % (count - rounds)); };
    const auto first = [&] { return house.task(0).id; };
    const auto last = [&] { return model.snapshot().tasks.back().id; };
    report(house, "add", [&](int round) { model.addTask(QStringLiteral("Added %1").arg(round)); });
    report(house, "rename",
           [&](int round) { model.rename(any(round), QStringLiteral("Other %1").arg(round)); });
    report(house, "toggle", [&](int round) { model.toggle(any(round)); });
    report(house, "delete", [&](int round) { model.deleteTask(any(round)); });
    report(house, "delete and undo", [&](int round) {
        model.deleteTask(any(round));
        model.undoDelete();
    });
    report(house, "move the last to the front", [&](int) { model.moveTask(last(), first()); });
    report(house, "move the first to the end", [&](int) { model.moveTask(first(), planner::Uuid()); });
    TaskSearchModel search;
    search.setTasks(model.openTasks());
    report(house, "search the titles",
           [&](int round) { search.setNeedle(QStringLiteral("number %1").arg(round)); });
    search.setTasks(nullptr);
    report(house, "move by one, at the end", [&](int) { model.moveTask(model.snapshot().tasks.back(), -1); });
}

/// Closing a stretch of a session that has run for 24 hours, in 5,760 segments.
void measureLongSession() {
    ModelFixture house;
    house.load();
    auto& model = *house.model;
    auto session = test::session(house.add(QStringLiteral("A long day")), planner::FocusStatus::paused);
    session.mode = planner::FocusMode::stopwatch;
    for (int number = 0; number < 5760; ++number) session.segments.push_back({{15.0 * number}, 15});
    house.platform.settle();
    model.focus()->restore(session);
    model.focus()->resume();
    mainThread(house, [] {});
    std::printf("\n%-28s %9s %9s %9s\n", "a day's session, ms", "median", "processor", "worst");
    report(house, "checkpoint", [&](int) {
        auto& clock = house.platform.clock;
        clock.setUptime(clock.uptime() + 15);
        model.focus()->checkpoint();
    });
}

/// The least that a page could cost: every number that it depends on is read once.
double readEverything(const planner::PlannerSnapshot& planner) {
    double sum = 0;
    for (const auto& task : planner.tasks) sum += task.completedAt.value_or(planner::Instant()).seconds;
    for (const auto& session : planner.sessions)
        for (const auto& segment : session.segments) sum += segment.start.seconds + segment.duration;
    return sum;
}

/// Opening the pages that look back, on ten years of 100,000 tasks and 20,000 sessions of 100 segments.
void measurePages() {
    ModelFixture house;
    PastPlanner past(house.platform.clock);
    for (int index = 0; index < 100'000; ++index)
        past.complete(index % 3650, 2, "A task whose title is about as long as usual");
    for (int index = 0; index < 20'000; ++index) {
        past.focus(index % 3650, 1, "A task", 0.25);
        auto session = past.snapshot.sessions.back();
        session.segments.resize(100, session.segments.front());
        past.snapshot.sessions.replace(past.snapshot.sessions.size() - 1, std::move(session));
    }
    house.store(past.snapshot);
    house.load();
    std::printf("\n%-28s %9s %9s %9s\n", "ten years, ms", "median", "processor", "worst");
    double sum = 0;
    report(house, "floor: read everything", [&](int) { sum += readEverything(house.model->snapshot()); });
    const auto open = [&](auto& page) {
        page.setModel(house.model.get());
        page.setActive(true);
    };
    report(house, "open Insights", [&](int) {
        InsightsModel page;
        open(page);
        sum += double(page.days().size());
    });
    report(house, "open History", [&](int) {
        HistoryModel page;
        open(page);
        sum += page.rowCount();
    });
    InsightsModel week;
    open(week);
    report(house, "toggle with Insights open",
           [&](int round) { house.model->toggle(house.task(std::size_t(round) * 2311)); });
    report(house, "note key with Insights open",
           [&](int round) { house.model->updateNote(QString::number(round)); });
    // What was read has to have been for something.
    if (sum == 0) std::puts("nothing was read");
}

} // namespace

int main() {
    measurePreferences();
    for (const auto count : {1'000u, 10'000u, 100'000u - rounds}) measure(count);
    measureLongSession();
    measurePages();
}
