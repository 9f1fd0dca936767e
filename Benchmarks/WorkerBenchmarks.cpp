// What it costs that a process of its own, which can do nothing else, reads the item: the whole command with
// it, and a program that makes the same page by itself. The same with the desktop's icons, kept from the run
// before.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Samples.h"

#include <benchmark/benchmark.h>

namespace quillmar {
namespace {

std::string text() { return Samples::file("worker.cpp", Samples::sourceCode(16'384)); }

void confined(benchmark::State& state) {
    CommandRun::measure(state, {CommandRun::host(), "--no-icons", "--html", "-", text()});
}

void confinedWithIcons(benchmark::State& state) {
    CommandRun::measure(state, {CommandRun::host(), "--html", "-", text()});
}

void unconfined(benchmark::State& state) { CommandRun::measure(state, {QUILLMAR_UNCONFINED, text()}); }

BENCHMARK(confined)->Name("worker/confined")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(confinedWithIcons)->Name("worker/confined, icons")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(unconfined)->Name("worker/unconfined")->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
} // namespace quillmar
