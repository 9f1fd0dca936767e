#pragma once

#include "Platform/FileURL.h"

#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillmar {

/// A chain of folders in an existing one, each with a file of one byte. It may be longer than any path: it is
/// made and taken apart without one.
class DeepFolder {
public:
    /// \p depth folders called \p name in each other, the first of them in \p top.
    DeepFolder(const FileURL& top, std::size_t depth, std::string name)
        : top_(top.path() + "/"), name_(std::move(name)) {
        int folder = ::open(top.path().c_str(), flags);
        for (std::size_t i = 0; i < depth && folder >= 0; ++i) {
            const bool isMade = ::mkdirat(folder, name_.c_str(), S_IRWXU) == 0;
            const int child = isMade ? ::openat(folder, name_.c_str(), flags) : -1;
            ::close(folder);
            folder = child;
            if (folder >= 0 && !writeFile(folder)) break;
        }
        if (folder < 0) throw std::runtime_error("cannot make a deep folder");
        ::close(folder);
    }
    ~DeepFolder() {
        const std::string first = top_ + name_;
        const std::string second = first + "/" + name_;
        const std::string aside = top_ + "aside";
        for (;;) {
            const bool hasSecond = std::rename(second.c_str(), aside.c_str()) == 0;
            ::unlink((first + "/" + fileName).c_str());
            if (::rmdir(first.c_str()) != 0 || !hasSecond) return;
            if (std::rename(aside.c_str(), first.c_str()) != 0) return;
        }
    }
    DeepFolder(const DeepFolder&) = delete;
    DeepFolder& operator=(const DeepFolder&) = delete;

private:
    static constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    static constexpr const char* fileName = "file";

    static bool writeFile(int folder) {
        const int file = ::openat(folder, fileName, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (file < 0) return false;
        const bool isWritten = ::ftruncate(file, 1) == 0;
        ::close(file);
        return isWritten;
    }

    std::string top_;
    std::string name_;
};

} // namespace quillmar
