#include "Benchmarks/CommandRun.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

extern char** environ;

namespace quillmar::CommandRun {
namespace {

struct Run {
    bool succeeded = false;
    double seconds = 0;
    double peakMegabytes = 0;
};

Run runOnce(const Command& command) {
    std::vector<char*> arguments;
    for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);

    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = -1;
    rusage usage{};
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0)
        wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    return {status == 0, elapsed.count(), static_cast<double>(usage.ru_maxrss) / 1'024}; // ru_maxrss: KiB
}

} // namespace

void measure(benchmark::State& state, const Command& command) {
    double peak = 0;
    for (auto _ : state) {
        const Run run = runOnce(command);
        if (!run.succeeded) return state.SkipWithError(("cannot run " + command[0]).c_str());
        state.SetIterationTime(run.seconds);
        peak = std::max(peak, run.peakMegabytes);
    }
    state.counters["peakMB"] = peak;
}

void compare(const std::string& sample, const std::function<std::string(const std::string&)>& path,
             const std::vector<Command>& rivals) {
    const auto add = [&](const std::string& name, const Command& command) {
        const auto run = [=](benchmark::State& state) {
            Command whole = command;
            whole.push_back(path(sample));
            measure(state, whole);
        };
        benchmark::RegisterBenchmark((sample + "/" + name).c_str(), run)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    };
    add("quillmar", {host(), "--no-icons", "--html", "-"});
    for (const auto& rival : rivals) {
        std::string name;
        for (const auto& word : rival) name += (name.empty() ? "" : " ") + word;
        add(name, rival);
    }
}

std::string host() { return QUILLMAR_BINARY; }

} // namespace quillmar::CommandRun
