// Folders: the whole command against what adds up or lists the same folder elsewhere, and how late the answer
// for one comes that is too large to be measured in time.
//
// The folders are made once, in the system's temporary folder. What is measured is warm: the system has it all
// in memory.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/FolderSamples.h"
#include "Folder/FolderSummarizer.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace quillmar {
namespace {

void compare(const std::string& folder, const std::vector<CommandRun::Command>& rivals) {
    CommandRun::compare(folder, FolderSamples::folder, rivals);
}

/// Reports as "lateMs" by how much the slowest answer outlasts the budget.
void budget(benchmark::State& state) {
    constexpr double budget = 0.25; // seconds; the folder takes longer
    const FileURL folder = FileURL::fromCommandLine(FolderSamples::folder("million"));
    double latest = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const FolderSummary summary = FolderSummarizer::summarize(folder, budget);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        if (summary.isComplete) return state.SkipWithError("measured whole within the budget");
        latest = std::max(latest, elapsed.count() - budget);
    }
    state.counters["lateMs"] = latest * 1'000;
}

const bool registered = [] {
    compare("wide", {{"du", "-sb"}, {"gdu", "-n", "-p", "-c"}});
    compare("deep", {{"du", "-sb"}, {"gdu", "-n", "-p", "-c"}});
    compare("flat", {{"ls", "-lA"}, {"du", "-sb"}});
    benchmark::RegisterBenchmark("million/budget", budget)->Unit(benchmark::kMillisecond)->UseRealTime();
    return true;
}();

} // namespace
} // namespace quillmar
