// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

inline double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Adds what of the times, in milliseconds, is in the middle, under which 95 of 100 stay, and the
/// longest.
inline void report(benchmark::State &state, const char *name, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    const auto at = [&times](double part) {
        return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
    };
    state.counters[std::string(name) + "_p50_ms"] = at(0.5);
    state.counters[std::string(name) + "_p95_ms"] = at(0.95);
    state.counters[std::string(name) + "_max_ms"] = at(1);
}
