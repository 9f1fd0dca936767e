#pragma once

#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace quillmar {

/// Makes nobody of root while this lives, on all threads, so that permissions bind tests that root runs as
/// well. Of anybody else it makes nothing. What a test creates meanwhile belongs to nobody.
class Unprivileged {
public:
    Unprivileged() : user_(::geteuid()), group_(::getegid()) {
        if (user_ != 0) return;
        if (::setegid(nobody) != 0 || ::seteuid(nobody) != 0) throw std::runtime_error("cannot become nobody");
    }
    ~Unprivileged() {
        if (user_ != 0) return;
        const bool isBack = ::seteuid(user_) == 0 && ::setegid(group_) == 0;
        // The change made the process one that debuggers and the leak detector may not look into.
        if (isBack) ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0);
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    static constexpr ::uid_t nobody = 65'534;

    ::uid_t user_;
    ::gid_t group_;
};

/// Gives the item at a path the permissions \p mode, and its owner all of them when this goes.
class ScopedPermissions {
public:
    ScopedPermissions(std::string path, ::mode_t mode) : path_(std::move(path)) {
        if (::chmod(path_.c_str(), mode) != 0) throw std::runtime_error("cannot change " + path_);
    }
    ~ScopedPermissions() { ::chmod(path_.c_str(), S_IRWXU); }
    ScopedPermissions(const ScopedPermissions&) = delete;
    ScopedPermissions& operator=(const ScopedPermissions&) = delete;

private:
    std::string path_;
};

} // namespace quillmar
