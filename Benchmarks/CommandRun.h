#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <string>
#include <vector>

/// Whole commands, from exec to exit.
namespace quillmar::CommandRun {

using Command = std::vector<std::string>;

/// Runs \p command once for every iteration of \p state, its output thrown away. Times each run by the wall
/// clock and reports the largest peak memory as "peakMB". \p command begins with a program found by PATH.
void measure(benchmark::State& state, const Command& command);

/// Registers a benchmark of the host's preview of \p sample, which \p path makes if it is not yet there, and
/// one of each of \p rivals with the same path behind its words.
void compare(const std::string& sample, const std::function<std::string(const std::string&)>& path,
             const std::vector<Command>& rivals);

/// The host that was built beside the benchmarks.
std::string host();

} // namespace quillmar::CommandRun
