#include "QuillmarQuickLook/ChildProcess.h"

#include <array>
#include <csignal>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar {

ChildProcess::ChildProcess(const std::string& program, std::string argument,
                           std::vector<std::string> environment) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
    std::string name = "quillmar";
    std::array<char*, 3> arguments{name.data(), argument.empty() ? nullptr : argument.data(), nullptr};
    std::vector<char*> variables;
    variables.reserve(environment.size() + 1);
    for (std::string& variable : environment) variables.push_back(variable.data());
    variables.push_back(nullptr);
    if (::posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), variables.data()) != 0)
        process_ = -1;
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    socket_ = ends[0];
}

ChildProcess::~ChildProcess() {
    if (socket_ >= 0) ::close(socket_);
    end();
}

int ChildProcess::end() {
    int status = 0;
    if (process_ < 0) return status;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return status;
}

} // namespace quillmar
