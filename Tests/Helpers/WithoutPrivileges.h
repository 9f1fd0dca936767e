#pragma once

#include <stdexcept>
#include <sys/types.h>
#include <unistd.h>

namespace quillmar {

/// While this lives, a process of root's is bound by permissions as all others are.
class WithoutPrivileges {
public:
    WithoutPrivileges() { become(isRoot_ ? nobody : ::geteuid()); }
    ~WithoutPrivileges() {
        if (isRoot_ && ::seteuid(0) != 0) ::_exit(1);
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    static constexpr uid_t nobody = 65'534;

    static void become(uid_t user) {
        if (::seteuid(user) != 0) throw std::runtime_error("cannot become another user");
    }

    bool isRoot_ = ::geteuid() == 0;
};

} // namespace quillmar
