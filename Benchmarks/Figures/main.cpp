// Prints the figures of docs/benchmarks.md as Markdown: QuillmarFigures [FILTER]. With a filter only the tables
// or rows whose name contains it.

#include "Benchmarks/Figures/Figures.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    try {
        const quillmar::Report report(argc > 1 ? argv[1] : "");
        quillmar::Figures::comparisons(report);
        quillmar::Figures::memory(report);
        quillmar::Figures::growth(report);
        quillmar::Figures::hostileMarkdown(report);
        quillmar::Figures::hostileArchives(report);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
