// The 512 KiB source file: its page in process, and the whole command against `cat -n` of the same file.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Samples.h"
#include "QuickPreview.h"

#include <benchmark/benchmark.h>

namespace quillmar {
namespace {

const std::string& sourceFile() {
    static const std::string path = Samples::file("source.cpp", Samples::sourceCode(524'288));
    return path;
}

void textPage(benchmark::State& state) {
    const FileURL url = FileURL::fromCommandLine(sourceFile());
    for (auto _ : state) benchmark::DoNotOptimize(QuickPreview::document(url, nullptr).html.data());
}
BENCHMARK(textPage)->Unit(benchmark::kMillisecond);

void textCommand(benchmark::State& state) {
    CommandRun::measure(state, {CommandRun::host(), "--no-icons", "--html", "-", sourceFile()});
}
BENCHMARK(textCommand)->Unit(benchmark::kMillisecond)->UseManualTime();

void catCommand(benchmark::State& state) { CommandRun::measure(state, {"cat", "-n", sourceFile()}); }
BENCHMARK(catCommand)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
} // namespace quillmar
