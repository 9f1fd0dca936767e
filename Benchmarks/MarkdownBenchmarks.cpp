// Markdown: in process beside the libraries that people use, then what hostile documents take.
//
// `quillmar` should take at most 0.35 of the time of cmark-gfm and 1.2 of that of md4c. A hostile document
// should take at most five times as long as prose of its size ("timesProse") and grow as its size does.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/HostileMarkdown.h"
#include "Benchmarks/MarkdownSamples.h"
#include "Benchmarks/Samples.h"
#include "Markdown/MarkdownRenderer.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <md4c-html.h>
#include <memory>
#include <utility>

namespace quillmar {
namespace {

using Documents = std::vector<std::string>;
/// Renders a document and returns the length of its HTML.
using Renderer = std::size_t (*)(const std::string& markdown);

std::size_t ours(const std::string& markdown) { return MarkdownRenderer{}.render(markdown).size(); }

std::size_t cmark(const std::string& markdown) {
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, void (*)(cmark_parser*)> parser(cmark_parser_new(CMARK_OPT_UNSAFE),
                                                                        cmark_parser_free);
    for (const char* extension : {"table", "strikethrough", "autolink", "tasklist"})
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(extension));
    cmark_parser_feed(parser.get(), markdown.data(), markdown.size());
    const std::unique_ptr<cmark_node, void (*)(cmark_node*)> document(cmark_parser_finish(parser.get()),
                                                                      cmark_node_free);
    const std::unique_ptr<char, void (*)(void*)> html(
        cmark_render_html(document.get(), CMARK_OPT_UNSAFE, cmark_parser_get_syntax_extensions(parser.get())),
        std::free);
    return std::string_view(html.get()).size();
}

std::size_t md4c(const std::string& markdown) {
    std::string html;
    const auto append = [](const MD_CHAR* text, MD_SIZE size, void* target) {
        static_cast<std::string*>(target)->append(text, size);
    };
    md_html(markdown.data(), static_cast<MD_SIZE>(markdown.size()), append, &html,
            MD_FLAG_TABLES | MD_FLAG_STRIKETHROUGH | MD_FLAG_TASKLISTS | MD_FLAG_PERMISSIVEAUTOLINKS, 0);
    return html.size();
}

constexpr std::size_t documentBytes = 2'097'152;

Documents largeDocument() { return {MarkdownSamples::documentation(documentBytes, 1)}; }
Documents prose() { return {MarkdownSamples::prose(documentBytes)}; }

void measure(benchmark::State& state, Renderer render, const Documents& documents) {
    std::size_t bytes = 0;
    for (const auto& document : documents) bytes += document.size();
    for (auto _ : state)
        for (const auto& document : documents) benchmark::DoNotOptimize(render(document));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

/// Of the processor, which others may use as well.
double secondsOf(const std::string& markdown) {
    const std::clock_t start = std::clock();
    benchmark::DoNotOptimize(ours(markdown));
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Seconds for a byte of prose.
double secondsOfProse() {
    static const double seconds = [] {
        const std::string text = MarkdownSamples::prose(documentBytes);
        double best = secondsOf(text);
        for (int i = 0; i < 9; ++i) best = std::min(best, secondsOf(text));
        return best / static_cast<double>(text.size());
    }();
    return seconds;
}

void hostile(benchmark::State& state, const HostileMarkdown& kind) {
    const std::string text = kind.document(static_cast<std::size_t>(state.range(0)));
    double best = 1e9;
    for (auto _ : state) best = std::min(best, secondsOf(text));
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
    state.counters["timesProse"] = best / secondsOfProse() / static_cast<double>(text.size());
}

/// The largest peak of the whole command over all classes.
void hostileMemory(benchmark::State& state) {
    std::filesystem::path folder;
    for (std::size_t i = 0; const auto& kind : hostileMarkdown()) {
        const std::string file = "hostile/" + std::to_string(i++) + ".md";
        folder = std::filesystem::path(Samples::file(file, kind.document(documentBytes))).parent_path();
    }
    // The peak of a shell is that of the largest process that it has waited for.
    CommandRun::measure(state, {"sh", "-c",
                                R"(for file in "$1"/*.md; do "$0" --no-icons --html - "$file" || exit; done)",
                                CommandRun::host(), folder.string()});
}
BENCHMARK(hostileMemory)->Unit(benchmark::kSecond)->UseManualTime()->Iterations(1);

void compare(const std::string& name, Documents (*make)()) {
    constexpr std::array<std::pair<const char*, Renderer>, 3> renderers{
        {{"quillmar", ours}, {"cmark-gfm", cmark}, {"md4c", md4c}}};
    for (const auto& [renderer, render] : renderers)
        benchmark::RegisterBenchmark(
            ("markdown/" + name + "/" + renderer).c_str(),
            [=, render = render](benchmark::State& state) { measure(state, render, make()); })
            ->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
    compare("document", largeDocument);
    compare("readmes", MarkdownSamples::readmes);
    compare("prose", prose);
    for (const auto& kind : hostileMarkdown())
        benchmark::RegisterBenchmark(("hostile/" + kind.name).c_str(),
                                     [kind](benchmark::State& state) { hostile(state, kind); })
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.05)
            ->RangeMultiplier(2)
            ->Range(524'288, documentBytes);
    return true;
}();

} // namespace
} // namespace quillmar
