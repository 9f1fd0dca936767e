#pragma once

#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

namespace quillmar {

/// Lets this process open only a few more files while this lives.
class ScopedOpenFileLimit {
public:
    explicit ScopedOpenFileLimit(::rlim_t more) {
        const int next = ::open("/", O_RDONLY | O_CLOEXEC); // the lowest number that is free
        if (next < 0 || ::getrlimit(RLIMIT_NOFILE, &before_) != 0) throw std::runtime_error("getrlimit");
        ::close(next);
        const ::rlimit few{.rlim_cur = static_cast<::rlim_t>(next) + more, .rlim_max = before_.rlim_max};
        if (::setrlimit(RLIMIT_NOFILE, &few) != 0) throw std::runtime_error("setrlimit");
    }
    ~ScopedOpenFileLimit() { ::setrlimit(RLIMIT_NOFILE, &before_); }
    ScopedOpenFileLimit(const ScopedOpenFileLimit&) = delete;
    ScopedOpenFileLimit& operator=(const ScopedOpenFileLimit&) = delete;

private:
    ::rlimit before_{};
};

} // namespace quillmar
