#include "Compare.h"

#include <PlannerCore/Insights.h>

#include <string>

using namespace planner;

namespace {

const Calendar& calendar() {
    static const Calendar berlin("Europe/Berlin");
    return berlin;
}

constexpr Instant now{794'800'000};

/// As large as a planner gets in practice, and more: 100,000 tasks and 20,000 sessions of 100 segments, over
/// the ten years before now.
const PlannerSnapshot& longPast() {
    static const auto planner = [] {
        constexpr double years = 3650 * 86'400.0;
        PlannerSnapshot snapshot;
        for (int index = 0; index < 100'000; ++index) {
            const Instant made = now - years * index / 100'000;
            PlannerTask task(Uuid::random(), "Task " + std::to_string(index), made, index);
            if (index % 10 != 0) task.completedAt = made + 3600;
            snapshot.tasks.push_back(std::move(task));
        }
        for (int index = 0; index < 20'000; ++index) {
            const Instant begun = now - years * index / 20'000;
            FocusSession session(Uuid::random(), "Task", FocusMode::stopwatch, 1500, begun);
            session.status = FocusStatus::finished;
            for (int segment = 0; segment < 100; ++segment)
                session.segments.push_back({begun + 15.015625 * segment, 15});
            snapshot.sessions.push_back(std::move(session));
        }
        return snapshot;
    }();
    return planner;
}

/// The least: every number that the answer depends on is read once.
void readEverything() {
    double sum = 0;
    for (const auto& task : longPast().tasks)
        if (task.completedAt) sum += task.completedAt->seconds;
    for (const auto& session : longPast().sessions)
        for (const auto& segment : session.segments) sum += segment.start.seconds + segment.duration;
    benchmark::DoNotOptimize(sum);
}

void week(benchmark::State& state) {
    longPast();
    compare(state, 3, readEverything, [] {
        auto week = insights::week(longPast(), now, calendar());
        benchmark::DoNotOptimize(week);
    });
}
BENCHMARK(week)->Name("Insights/week")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(41);

void day(benchmark::State& state) {
    const auto today = *insights::dayOf(now, calendar());
    longPast();
    compare(state, 3, readEverything, [&] {
        auto tasks = insights::completedOn(today, longPast().tasks);
        auto sessions = insights::sessionsOn(today, longPast().sessions);
        benchmark::DoNotOptimize(tasks);
        benchmark::DoNotOptimize(sessions);
    });
}
BENCHMARK(day)->Name("Insights/day")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(41);

} // namespace
