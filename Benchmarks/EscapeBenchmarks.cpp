// Escaping against copying the same bytes, the floor of any text output.

#include "Benchmarks/Samples.h"
#include "Support/HTML.h"

#include <benchmark/benchmark.h>

namespace quillmar {
namespace {

constexpr std::size_t size = 524'288;

void countBytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
}

void copy(benchmark::State& state, const std::string& text) {
    std::string html;
    for (auto _ : state) {
        html.clear();
        benchmark::DoNotOptimize(html.append(text).data());
    }
    countBytes(state);
}

void escape(benchmark::State& state, const std::string& text) {
    std::string html;
    for (auto _ : state) {
        html.clear();
        HTML::appendEscaped(html, text);
        benchmark::DoNotOptimize(html.data());
    }
    countBytes(state);
}

BENCHMARK_CAPTURE(copy, sourceCode, Samples::sourceCode(size));
BENCHMARK_CAPTURE(escape, plainText, std::string(size, 'x'));
BENCHMARK_CAPTURE(escape, sourceCode, Samples::sourceCode(size));
BENCHMARK_CAPTURE(escape, onlyReferences, std::string(size, '<'));

} // namespace
} // namespace quillmar
