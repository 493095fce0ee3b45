// Prints how long a restore of a backup near 50 MB takes as a whole and the longest stretch for which it
// keeps the main thread from answering: with the real store on its own thread and the Dashboard on show.

#include "Doubles/FakePlatform.h"
#include "Model/AppModel.h"
#include "Model/NavigationModel.h"
#include "Platform/Linux/WorkerExecutor.h"
#include "ScratchFolder.h"
#include "Views/ViewEngine.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using namespace orvane;
using namespace orvane::test;
using namespace planner;

namespace {

constexpr int rounds = 7;
constexpr double now = 794'000'000;

double milliseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// 40,000 tasks, 10,000 notes, 4,000 sessions of 100 segments, none of which another call makes again.
PlannerSnapshot largePlanner() {
    PlannerSnapshot planner;
    for (int index = 0; index < 40'000; ++index)
        planner.tasks.push_back({Uuid::random(), "Water the plants on the balcony " + std::to_string(index),
                                 Instant{now + index * 61.375}, index});
    for (int index = 0; index < 10'000; ++index)
        planner.notes.push_back(
            {std::to_string(100'000 + index), std::string(100, 'n'), Instant{now + index}});
    for (int index = 0; index < 4'000; ++index) {
        FocusSession session(Uuid::random(), "Task " + std::to_string(index), FocusMode::countdown, 1500,
                             Instant{now + index});
        session.status = FocusStatus::finished;
        for (int segment = 0; segment < 100; ++segment)
            session.segments.push_back({Instant{now + index + segment * 15.015625}, 15.0 + segment / 7.0});
        planner.sessions.push_back(std::move(session));
    }
    return planner;
}

/// Calls on the main thread about every millisecond and takes the time until it answers, and how much of
/// that it worked itself.
class Watch {
public:
    Watch() : thread_([this] { watch(); }) {}
    ~Watch() {
        {
            const std::lock_guard lock(mutex_);
            over_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    void reset() {
        const std::lock_guard lock(mutex_);
        longestWall_ = longestProcessor_ = 0;
    }
    double longestWall() {
        const std::lock_guard lock(mutex_);
        return longestWall_;
    }
    double longestProcessor() {
        const std::lock_guard lock(mutex_);
        return longestProcessor_;
    }

private:
    void watch() {
        std::unique_lock lock(mutex_);
        while (!over_) {
            answered_ = false;
            const auto called = milliseconds(CLOCK_MONOTONIC);
            QMetaObject::invokeMethod(
                &home_, [this, called] { answer(called); }, Qt::QueuedConnection);
            changed_.wait(lock, [this] { return answered_ || over_; });
            changed_.wait_for(lock, std::chrono::milliseconds(1), [this] { return over_; });
        }
    }
    /// On the main thread.
    void answer(double called) {
        const auto processor = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        const std::lock_guard lock(mutex_);
        longestWall_ = std::max(longestWall_, milliseconds(CLOCK_MONOTONIC) - called);
        longestProcessor_ = std::max(longestProcessor_, processor - processor_);
        processor_ = processor;
        answered_ = true;
        changed_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    QObject home_;
    bool answered_ = false;
    bool over_ = false;
    double longestWall_ = 0;
    double longestProcessor_ = 0;
    /// The main thread's processor time at its last answer.
    double processor_ = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    std::thread thread_;
};

/// The application over a scratch folder; all but the store's worker in memory.
struct Application {
    explicit Application(const std::filesystem::path& folder) {
        desk.dataFolder.folder = folder / "Orvane";
        prepareEngine(engine);
        model = std::make_unique<AppModel>(platform);
        view = std::make_unique<QQuickView>(&engine, nullptr);
        view->setResizeMode(QQuickView::SizeRootObjectToView);
        view->setInitialProperties(
            {{"model", QVariant::fromValue(model.get())}, {"navigation", QVariant::fromValue(&navigation)}});
        view->setSource(QUrl("qrc:/qt/qml/Orvane/DashboardView.qml"));
        view->resize(1320, 730);
        view->show();
        model->load();
        runUntil([this] { return model->ready(); });
    }

    void runUntil(const std::function<bool()>& over) {
        while (!over()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            desk.clock.settle();
            desk.notifications.answerAll();
        }
    }
    /// A restore from the chosen file to its end.
    void restore(const std::filesystem::path& file) {
        model->setNotice(std::nullopt);
        model->importBackup();
        desk.filePanels.choose(file);
        runUntil([this] { return !desk.alerts.open.empty(); });
        desk.alerts.choose(0);
        runUntil([this] { return model->notice() || model->error(); });
        // The frames that show the restored planner, and what is freed behind them.
        for (int frame = 0; frame < 20; ++frame) {
            view->update();
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    FakePlatform desk;
    WorkerExecutor worker;
    Platform platform{desk.clock,         worker,      desk.dataFolder, desk.defaults, desk.information,
                      desk.notifications, desk.events, desk.loginItem,  desk.hotKeys,  desk.screens,
                      desk.systemEvents,  desk.alerts, desk.filePanels, desk.log};
    QQmlEngine engine;
    NavigationModel navigation;
    std::unique_ptr<AppModel> model;
    std::unique_ptr<QQuickView> view;
};

} // namespace

int main(int argc, char* argv[]) {
    QGuiApplication application(argc, argv);
    const ScratchFolder folder;
    const auto write = [&](const char* name) {
        const auto bytes = largePlanner().backupData();
        writeFile(folder / name, bytes);
        return double(bytes.size()) / 1e6;
    };
    const double megabytes = write("First.json");
    write("Second.json");
    Application orvane(folder.path());
    orvane.restore(folder / "First.json");
    Watch watch;
    std::vector<double> whole, wall, processor;
    for (int round = 0; round < rounds; ++round) {
        watch.reset();
        const auto begin = milliseconds(CLOCK_MONOTONIC);
        orvane.restore(folder / (round % 2 == 0 ? "Second.json" : "First.json"));
        whole.push_back(milliseconds(CLOCK_MONOTONIC) - begin);
        wall.push_back(watch.longestWall());
        processor.push_back(watch.longestProcessor());
        if (orvane.model->error()) {
            std::fprintf(stderr, "%s\n", qPrintable(*orvane.model->error()));
            return 1;
        }
    }
    std::printf("\n%-44s %9s %9s %9s\n", "a restore, ms", "median", "worst", "reach");
    const auto row = [](const std::string& name, std::vector<double> values, const char* reach) {
        std::sort(values.begin(), values.end());
        std::printf("%-44s %9.1f %9.1f %9s\n", name.c_str(), values[values.size() / 2], values.back(), reach);
    };
    const auto size = std::to_string(int(megabytes)) + " MB, ";
    row(size + "whole", whole, "");
    row(size + "longest stall", wall, "100");
    row(size + "longest stall, processor", processor, "");
}
