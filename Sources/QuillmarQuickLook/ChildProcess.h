#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace quillmar {

/// A program of ours that runs beside this one, with a socket between them as its standard input. It ends with
/// this object at the latest.
class ChildProcess {
public:
    /// Starts \p program with at most one \p argument and an \p environment of "NAME=value"s. Whether that
    /// worked, `isRunning` tells.
    ChildProcess(const std::string& program, std::string argument, std::vector<std::string> environment);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool isRunning() const { return process_ >= 0; }
    int socket() const { return socket_; }

    /// Ends it and returns its status as `waitpid` has it. What it has died of before does not change.
    int end();

private:
    pid_t process_ = -1;
    int socket_ = -1;
};

} // namespace quillmar
