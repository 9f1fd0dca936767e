#include "Benchmarks/CommandRun.h"

#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>

extern char** environ;

namespace quillmar::CommandRun {

double seconds(const Command& command) {
    std::vector<char*> arguments;
    for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);

    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = -1;
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0)
        waitpid(child, &status, 0);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    if (status != 0) throw std::runtime_error("cannot run " + command.front());
    return elapsed.count();
}

double hostPeakMegabytes(const std::string& path) {
    std::string command = "'" QUILLMAR_PEAK_MEMORY "'";
    for (const auto& word : host(path)) command.append(" '").append(word).append("'");
    std::FILE* const output = popen(command.c_str(), "r");
    if (output == nullptr) throw std::runtime_error("cannot run " + command);
    long kibibytes = 0;
    const bool isRead = std::fscanf(output, "%ld", &kibibytes) == 1;
    pclose(output);
    if (!isRead) throw std::runtime_error("cannot run " + command);
    return static_cast<double>(kibibytes) / 1'024;
}

Command host(const std::string& path) { return {QUILLMAR_BINARY, "--no-icons", "--html", "-", path}; }

} // namespace quillmar::CommandRun
