#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

/// Whole commands, from exec to exit.
namespace quillmar::CommandRun {

/// Runs \p command once for every iteration of \p state, its output thrown away. Times each run by the wall
/// clock and reports the largest peak memory as "peakMB". \p command begins with a program found by PATH.
void measure(benchmark::State& state, const std::vector<std::string>& command);

/// The host that was built beside the benchmarks.
std::string host();

} // namespace quillmar::CommandRun
