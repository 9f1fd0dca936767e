#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Figures/Figures.h"
#include "Benchmarks/Figures/Growth.h"
#include "Benchmarks/Figures/MarkdownRenderers.h"
#include "Benchmarks/HostileArchives.h"
#include "Benchmarks/HostileMarkdown.h"
#include "Benchmarks/MarkdownSamples.h"
#include "Benchmarks/Samples.h"
#include "QuickPreview.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmar {
namespace {

constexpr double askedMegabytes = 512;

struct Outcome {
    std::string name;
    Growth growth;
    double slowness =
        0; ///< times what an ordinary one of its size takes; 0 when there is nothing to compare with
    double peakMegabytes = 0;
    bool isAbove = false; ///< one of the bounds

    double seconds() const { return growth.seconds.back(); }
};

std::string factorOf(const Growth& growth) {
    const double factor = growth.meanFactor();
    return factor > 0 ? threeDigits(factor) : "";
}

/// All that are above a bound, and the slowest of the others.
void print(std::string_view title, std::string about, std::vector<Outcome> outcomes) {
    constexpr std::size_t fewestRows = 10;
    const auto above = std::ranges::count(outcomes, true, &Outcome::isAbove);
    about.append(" ").append(std::to_string(outcomes.size())).append(" classes, of which ");
    about.append(std::to_string(above)).append(" above a bound; those, and the slowest of the others.");
    std::ranges::sort(outcomes, [](const Outcome& a, const Outcome& b) {
        return a.isAbove != b.isAbove ? a.isAbove : a.seconds() > b.seconds();
    });
    outcomes.resize(std::min(outcomes.size(), std::max(fewestRows, static_cast<std::size_t>(above))));
    const bool hasProse =
        std::ranges::any_of(outcomes, [](const Outcome& outcome) { return outcome.slowness > 0; });
    std::vector<Row> rows{{"class", "above", "time", "factor", "peak"}};
    if (hasProse) rows.front().push_back("times prose");
    for (const Outcome& outcome : outcomes) {
        Row& row = rows.emplace_back(Row{
            outcome.name, outcome.isAbove ? "yes" : "", threeDigits(outcome.seconds() * 1'000).append(" ms"),
            factorOf(outcome.growth), threeDigits(outcome.peakMegabytes).append(" MB")});
        if (hasProse) row.push_back(threeDigits(outcome.slowness));
    }
    Report::print(title, about, rows);
}

} // namespace

void Figures::hostileMarkdown(const Report& report) {
    constexpr std::string_view title = "Hostile Markdown";
    constexpr std::size_t bytes = 2'097'152;
    constexpr double askedSlowness = 5;
    const auto rendering = [](std::string text) -> Job {
        return [text = std::move(text)] { MarkdownRenderers::ours(text); };
    };
    const Job prose = rendering(MarkdownSamples::prose(bytes));
    std::vector<Outcome> outcomes;
    for (const HostileMarkdown& kind : quillmar::hostileMarkdown()) {
        if (!report.wants(title, kind.name)) continue;
        Outcome& outcome = outcomes.emplace_back(Outcome{.name = kind.name, .growth = {}});
        outcome.growth = measureGrowth(bytes, [&](std::size_t size) { return rendering(kind.document(size)); });
        const std::string largest = kind.document(bytes);
        outcome.slowness = timesAsLong(rendering(largest), prose, askedSlowness);
        outcome.peakMegabytes = CommandRun::hostPeakMegabytes(Samples::file("hostile.md", largest));
        outcome.isAbove = outcome.slowness > askedSlowness || outcome.peakMegabytes > askedMegabytes ||
                          outcome.growth.meanFactor() > Growth::asked;
    }
    print(title,
          "Documents of 256 KiB, 512 KiB, 1 MiB and 2 MiB rendered in new processes: processor time of the "
          "largest, how many times that is of ordinary prose (at most 5), the factor of a doubling (at most "
          "2.2), the command's peak (at most 512 MB).",
          std::move(outcomes));
}

void Figures::hostileArchives(const Report& report) {
    constexpr std::string_view title = "Hostile archives";
    std::vector<Outcome> outcomes;
    for (const HostileArchive& kind : quillmar::hostileArchives()) {
        if (!report.wants(title, kind.name)) continue;
        std::string path; // in the end of the largest, which comes last
        Outcome& outcome = outcomes.emplace_back(Outcome{.name = kind.name, .growth = {}});
        outcome.growth = measureGrowth(kind.largest, [&](std::size_t bytes) {
            path = Samples::file("hostile-" + std::to_string(bytes), kind.archive(bytes));
            return [url = FileURL::fromCommandLine(path)] { QuickPreview::document(url, nullptr); };
        });
        outcome.peakMegabytes = CommandRun::hostPeakMegabytes(path);
        outcome.isAbove = outcome.peakMegabytes > askedMegabytes || outcome.growth.meanFactor() > Growth::asked;
    }
    print(title,
          "Pages made in new processes for an eighth, a quarter, a half and all of each class's size: "
          "processor time of the largest, the factor of a doubling (at most 2.2), the command's peak (at most "
          "512 MB).",
          std::move(outcomes));
}

} // namespace quillmar
