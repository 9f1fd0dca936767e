#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Figures/Figures.h"
#include "Benchmarks/FolderSamples.h"
#include "Benchmarks/MarkdownSamples.h"
#include "Benchmarks/Samples.h"

#include <functional>
#include <string>

namespace quillmar {
namespace {

constexpr std::string_view title = "Memory";
constexpr std::string_view about = "The command's peak: resident memory of the larger of its two processes, "
                                   "libraries and the program's own pages "
                                   "included. At most 512 MB is asked, and 60 MB of most.";

struct Kind {
    const char* name;
    std::function<std::string()> path;
};

} // namespace

void Figures::memory(const Report& report) {
    const auto archive = [](const char* name) { return [=] { return Samples::archive(name); }; };
    const auto source = [](std::size_t bytes) {
        return [=] {
            return Samples::file("source-" + std::to_string(bytes) + ".cpp", Samples::sourceCode(bytes));
        };
    };
    const auto markdown = [] {
        return Samples::file("documentation-0.md", MarkdownSamples::documentation(2'097'152, 1));
    };
    std::vector<Row> rows{{"what", "peak"}};
    for (const Kind& kind :
         {Kind{"text of 100 bytes", source(100)}, Kind{"text, 512 KiB", source(524'288)},
          Kind{"text, 100 MB, cut at 512 KiB", source(100'000'000)}, Kind{"Markdown, 2 MiB", markdown},
          Kind{"zip, 20,000 entries", archive("tree.zip")}, Kind{"zip, 60,000 entries", archive("many.zip")},
          Kind{"tar, 20,000 files", archive("tree.tar")},
          Kind{"tar.gz, 20,000 files, 300 MB", archive("tree.tar.gz")},
          Kind{"tar.gz, 1 GB in 10 files", archive("large.tar.gz")},
          Kind{"tar.xz in blocks, 2,000 files", archive("tree-blocks.tar.xz")},
          Kind{"tar.xz in one block, 2,000 files", archive("tree-one-block.tar.xz")},
          Kind{"folder, 100 of 1,000 files", [] { return FolderSamples::wide(100); }},
          Kind{"folder, deep tree of 69,000 files", FolderSamples::deep},
          Kind{"folder, 100,000 files flat", [] { return FolderSamples::flat(100'000); }}}) {
        if (!report.wants(title, kind.name)) continue;
        const double peak = CommandRun::hostPeakMegabytes(kind.path());
        rows.push_back({kind.name, threeDigits(peak).append(" MB")});
    }
    Report::print(title, about, rows);
}

} // namespace quillmar
