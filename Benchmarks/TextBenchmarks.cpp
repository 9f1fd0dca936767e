// The page of a 512 KiB source file, in process.

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

} // namespace
} // namespace quillmar
