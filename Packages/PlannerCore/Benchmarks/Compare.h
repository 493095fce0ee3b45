#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

/// Seconds that one call takes.
template <class Action>
double secondsOf(Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Runs `floor`, the least that anything could cost here, and `measured` in turn, so that whatever else
/// the machine does meets both. Reports the median of each and their ratio; `reach` is the ratio to
/// stay within. For benchmarks with UseManualTime.
template <class Floor, class Measured>
void compare(benchmark::State& state, double reach, Floor floor, Measured measured) {
    std::vector<double> floors, times;
    for ([[maybe_unused]] auto _ : state) {
        floors.push_back(secondsOf(floor));
        times.push_back(secondsOf(measured));
        state.SetIterationTime(times.back());
    }
    state.counters["floor_ms"] = median(floors) * 1e3;
    state.counters["median_ms"] = median(times) * 1e3;
    state.counters["ratio"] = median(times) / median(floors);
    state.counters["reach"] = reach;
}
