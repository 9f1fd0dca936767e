// How late the answer for a folder comes that is too large to be measured in time. What is measured is warm:
// the system has it all in memory.

#include "Benchmarks/FolderSamples.h"
#include "Folder/FolderSummarizer.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace quillmar {
namespace {

/// Reports as "lateMs" by how much the slowest answer outlasts the budget.
void budget(benchmark::State& state) {
    constexpr double budget = 0.25; // seconds; the folder takes longer
    const FileURL folder = FileURL::fromCommandLine(FolderSamples::million());
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
BENCHMARK(budget)->Name("million/budget")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace quillmar
