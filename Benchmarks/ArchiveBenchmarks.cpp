// Archives: the whole command against what lists or decompresses the same file elsewhere.
//
// The archives are made once, in the system's temporary folder, by the machine's own tools.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Samples.h"

#include <benchmark/benchmark.h>

namespace quillmar {
namespace {

using Command = std::vector<std::string>;

void ours(benchmark::State& state, const std::string& archive) {
    CommandRun::measure(state, {CommandRun::host(), "--no-icons", "--html", "-", Samples::archive(archive)});
}

void theirs(benchmark::State& state, Command command, const std::string& archive) {
    command.push_back(Samples::archive(archive));
    CommandRun::measure(state, command);
}

void compare(const std::string& archive, const std::vector<Command>& rivals) {
    const auto add = [&](const std::string& name, auto run) {
        benchmark::RegisterBenchmark((archive + "/" + name).c_str(), run)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    };
    add("quillmar", [=](benchmark::State& state) { ours(state, archive); });
    for (const auto& rival : rivals) {
        std::string name;
        for (const auto& word : rival) name += (name.empty() ? "" : " ") + word;
        add(name, [=](benchmark::State& state) { theirs(state, rival, archive); });
    }
}

const bool registered = [] {
    compare("tree.zip", {{"unzip", "-l"}, {"bsdtar", "-tvf"}});
    compare("tree.tar", {{"tar", "-tvf"}, {"bsdtar", "-tvf"}});
    compare("tree.tar.gz", {{"bsdtar", "-tvf"}, {"tar", "-tvf"}});
    compare("large.tar.gz", {{"bsdtar", "-tvf"}});
    compare("tree-blocks.tar.xz", {{"xz", "-T1", "-dc"}, {"bsdtar", "-tvf"}});
    compare("tree-one-block.tar.xz", {{"xz", "-dc"}});
    return true;
}();

} // namespace
} // namespace quillmar
