// Prints the figures of docs/benchmarks.md as Markdown: QuillmarFigures [FILTER]. With a filter only the tables
// or rows whose name contains it.

#include "Benchmarks/Figures/Figures.h"

#include <cstdio>
#include <exception>
#include <malloc.h>

int main(int argc, char** argv) {
    // The allocator keeps no large pieces from one run for the next: each is to cost what it does in a new
    // process.
    constexpr int pieceBytes = 131'072;
    mallopt(M_MMAP_THRESHOLD, pieceBytes);
    mallopt(M_TRIM_THRESHOLD, pieceBytes);
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
