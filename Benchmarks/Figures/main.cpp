// Prints the figures of docs/benchmarks.md as Markdown: QuillmarFigures [FILTER]. With a filter only the tables
// or rows whose name contains it.

#include "Benchmarks/Figures/Figures.h"
#include "QuillmarQuickLook/Worker/WorkerEnvironment.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <unistd.h>

namespace {

/// Starts this program again with the memory that a worker has, for what it renders itself: the allocator looks
/// at its tunables once. The commands that it starts have the user's environment.
void haveMemoryOfWorkers(char** arguments) {
    using namespace quillmar::WorkerEnvironment;
    if (std::getenv(allocatorTunables) == nullptr) {
        ::setenv(allocatorTunables, memoryOfWorkers, 0);
        ::execv("/proc/self/exe", arguments);
    }
    ::unsetenv(allocatorTunables);
}

} // namespace

int main(int argc, char** argv) {
    try {
        haveMemoryOfWorkers(argv);
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
