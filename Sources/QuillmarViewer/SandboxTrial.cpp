#include "QuillmarViewer/SandboxTrial.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// The variable by which WebKit is told to do without its sandbox.
constexpr const char* withoutSandbox = "WEBKIT_DISABLE_SANDBOX_THIS_IS_DANGEROUS";

bool isSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && std::string_view(value) == "1";
}

} // namespace

SandboxTrial::SandboxTrial() {
    if (isSet(withoutSandbox)) return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // A program in namespaces of its own, as WebKit's will be.
    const std::array<const char*, 7> arguments{"bwrap",         "--ro-bind", "/",    "/",
                                               "--unshare-all", "true",      nullptr};
    const int error =
        ::posix_spawnp(&process_, "bwrap", &actions, nullptr, const_cast<char* const*>(arguments.data()),
                       environ); // not written to
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) process_ = -1;
}

SandboxTrial::~SandboxTrial() { static_cast<void>(status()); }

std::optional<int> SandboxTrial::status() {
    if (process_ < 0) return std::nullopt;
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return status;
}

std::optional<std::string> SandboxTrial::problem() {
    if (isSet(withoutSandbox)) return std::nullopt;
    const auto result = status();
    if (!result) return "WebKit's sandbox is missing: install the package bubblewrap, or use --html FILE";
    if (*result == 0) return std::nullopt;
    return "WebKit's sandbox cannot be made here, because this system allows no namespaces: use --html FILE "
           "(in a container, allow user namespaces)";
}

} // namespace quillmar
