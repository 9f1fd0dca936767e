// What it costs that a process of its own, which can do nothing else, reads the item: the whole command with
// it, and a program that makes the same page by itself. The same with the desktop's icons, kept from the run
// before.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Samples.h"

#include <benchmark/benchmark.h>

namespace quillmar {
namespace {

/// A page that is nothing but the process's start, and the largest that a text makes.
constexpr std::int64_t smallText = 16'384;
constexpr std::int64_t largestText = 524'288;

std::string text(const benchmark::State& state) {
    const auto bytes = static_cast<std::size_t>(state.range(0));
    return Samples::file("worker-" + std::to_string(bytes) + ".cpp", Samples::sourceCode(bytes));
}

void measure(benchmark::State& state, const CommandRun::Command& command) {
    for (auto _ : state) state.SetIterationTime(CommandRun::seconds(command));
}

void confined(benchmark::State& state) { measure(state, CommandRun::host(text(state))); }

void confinedWithIcons(benchmark::State& state) {
    measure(state, {QUILLMAR_BINARY, "--html", "-", text(state)});
}

void unconfined(benchmark::State& state) { measure(state, {QUILLMAR_UNCONFINED, text(state)}); }

void options(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(smallText)->Arg(largestText)->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK(confined)->Name("worker/confined")->Apply(options);
BENCHMARK(confinedWithIcons)->Name("worker/confined, icons")->Apply(options);
BENCHMARK(unconfined)->Name("worker/unconfined")->Apply(options);

} // namespace
} // namespace quillmar
