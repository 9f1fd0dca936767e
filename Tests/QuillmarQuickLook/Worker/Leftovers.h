#pragma once

#include <cerrno>
#include <cstddef>
#include <dirent.h>
#include <sys/wait.h>

namespace quillmar {

/// Descriptors that this process has open.
inline std::size_t openDescriptors() {
    DIR* folder = ::opendir("/proc/self/fd");
    std::size_t count = 0;
    while (folder != nullptr && ::readdir(folder) != nullptr) ++count;
    if (folder != nullptr) ::closedir(folder);
    return count;
}

/// Whether no child of this process runs, and none has ended that nobody has asked after.
inline bool hasNoChildren() { return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD; }

} // namespace quillmar
