// What twice as much of the same takes: pages made in process, so that no start of a program hides the growth.

#include "Benchmarks/Figures/Figures.h"
#include "Benchmarks/Figures/Growth.h"
#include "Benchmarks/FolderSamples.h"
#include "Benchmarks/MarkdownSamples.h"
#include "Benchmarks/Samples.h"
#include "QuickPreview.h"

#include <string>

namespace quillmar {
namespace {

constexpr std::string_view title = "Growth";
constexpr std::string_view about = "Processor time of the whole page, made in process, for an eighth of the "
                                   "largest input, a quarter, a half and all of "
                                   "it; the factor is that of the steepest doubling. At most 2.2 is asked.";

using Input = std::string (*)(std::size_t size); ///< makes it and returns its path

struct Kind {
    const char* name;
    std::size_t largest;
    Input input;
};

std::string text(std::size_t bytes) {
    return Samples::file("growing-" + std::to_string(bytes) + ".cpp", Samples::sourceCode(bytes));
}

std::string markdown(std::size_t bytes) {
    return Samples::file("growing-" + std::to_string(bytes) + ".md", MarkdownSamples::documentation(bytes, 1));
}

std::string zip(std::size_t files) { return Samples::treeArchive(files, ".zip"); }
std::string tar(std::size_t files) { return Samples::treeArchive(files, ".tar"); }
std::string tarGzip(std::size_t files) { return Samples::treeArchive(files, ".tar.gz"); }
std::string tarXz(std::size_t files) { return Samples::treeArchive(files, ".tar.xz"); }

std::string flatFolder(std::size_t files) { return FolderSamples::flat(static_cast<int>(files)); }
std::string wideFolder(std::size_t folders) { return FolderSamples::wide(static_cast<int>(folders)); }

} // namespace

void Figures::growth(const Report& report) {
    std::vector<Row> rows{{"what", "largest", "1/8", "1/4", "1/2", "1", "factor"}};
    for (const Kind& kind : {Kind{"text, bytes", 524'288, text}, Kind{"Markdown, bytes", 2'097'152, markdown},
                             Kind{"zip, entries", 16'000, zip}, Kind{"tar, entries", 16'000, tar},
                             Kind{"tar.gz, entries", 16'000, tarGzip}, Kind{"tar.xz, entries", 3'200, tarXz},
                             Kind{"folder, files in it", 80'000, flatFolder},
                             Kind{"folder, folders of 1,000 files", 80, wideFolder}}) {
        if (!report.wants(title, kind.name)) continue;
        const Growth growth = measureGrowth(kind.largest, [&](std::size_t size) {
            return [url = FileURL::fromCommandLine(kind.input(size))] { QuickPreview::document(url, nullptr); };
        });
        Row& row = rows.emplace_back(Row{kind.name, std::to_string(kind.largest)});
        for (const double seconds : growth.seconds) row.push_back(threeDigits(seconds * 1'000).append(" ms"));
        row.push_back(threeDigits(growth.largestFactor()));
    }
    Report::print(title, about, rows);
}

} // namespace quillmar
