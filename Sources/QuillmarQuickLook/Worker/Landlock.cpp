#include "QuillmarQuickLook/Worker/Landlock.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quillmar::Landlock {
namespace {

// The kernel's interface (linux/landlock.h), of which this machine's header may know an older version.
constexpr std::uint64_t readFile = 1U << 2;
constexpr std::uint64_t readFolder = 1U << 3;
constexpr unsigned askVersion = 1;
constexpr int pathBeneath = 1;

struct Rules {
    std::uint64_t files = 0;
    std::uint64_t network = 0; ///< from version 4 on
    std::uint64_t scopes = 0;  ///< from version 6 on: abstract sockets, signals
};

struct __attribute__((packed)) PathRule {
    std::uint64_t allowed;
    std::int32_t descriptor;
};

/// Everything that each version can forbid, from version 1 on.
constexpr std::array<Rules, 6> everything{{
    {.files = (1U << 13) - 1, .network = 0, .scopes = 0},
    {.files = (1U << 14) - 1, .network = 0, .scopes = 0},
    {.files = (1U << 15) - 1, .network = 0, .scopes = 0},
    {.files = (1U << 15) - 1, .network = 3, .scopes = 0},
    {.files = (1U << 16) - 1, .network = 3, .scopes = 0},
    {.files = (1U << 16) - 1, .network = 3, .scopes = 3},
}};

/// Bytes of the rules that the kernel of \p version knows.
std::size_t sizeOfRules(int version) {
    if (version >= 6) return sizeof(Rules);
    return version >= 4 ? offsetof(Rules, scopes) : offsetof(Rules, network);
}

void allowReading(int rules, const FileURL& item) {
    const int descriptor = ::open(item.path().c_str(), O_PATH | O_CLOEXEC);
    if (descriptor < 0) return;
    struct stat status {};
    const bool isFolder = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    const PathRule rule{.allowed = isFolder ? readFile | readFolder : readFile, .descriptor = descriptor};
    ::syscall(SYS_landlock_add_rule, rules, pathBeneath, &rule, 0); // refused, it leaves nothing to read
    ::close(descriptor);
}

} // namespace

int version() {
    const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, askVersion);
    return version > 0 ? static_cast<int>(version) : 0;
}

bool restrictTo(const std::optional<FileURL>& item) {
    const int known = std::min(version(), static_cast<int>(everything.size()));
    if (known == 0) return false;
    const Rules& forbidden = everything.at(static_cast<std::size_t>(known - 1));
    const int rules =
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &forbidden, sizeOfRules(known), 0));
    if (rules < 0) return false;
    if (item) allowReading(rules, *item);
    const bool isInForce = ::syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    ::close(rules);
    return isInForce;
}

} // namespace quillmar::Landlock
