#include "QuillmarQuickLook/Icons/IconRenderer.h"

#include "QuillmarQuickLook/MessageSocket.h"

#include <array>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// True for a PNG of the size that was asked for (PNG, 5.2 and 11.2.2): the program that drew it has read what
/// strangers made, and what it answers is as hostile.
bool isIcon(DataView png) {
    using namespace std::string_view_literals;
    return png.starts_with("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x80\0\0\0\x80"sv);
}

} // namespace

std::string IconRenderer::standardProgram() {
    std::array<char, PATH_MAX> path{};
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return {};
    const std::string_view program(path.data(), static_cast<std::size_t>(length));
    const std::string folder(program.substr(0, program.rfind('/')));
    for (const char* place : {"/QuillmarIconRenderer", "/../" QUILLMAR_LIBEXEC "/QuillmarIconRenderer"})
        if (::access((folder + place).c_str(), X_OK) == 0) return folder + place;
    return {};
}

bool IconRenderer::start() {
    if (program_.empty()) return false;
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
    std::array<char*, 2> arguments{program_.data(), nullptr};
    std::array<char*, 1> environment{nullptr}; // nothing in it is the program's business
    pid_t process = -1;
    const int error =
        ::posix_spawn(&process, program_.c_str(), &actions, nullptr, arguments.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    if (error != 0) {
        ::close(ends[0]);
        return false;
    }
    process_ = process;
    socket_ = ends[0];
    const bool isReady = MessageSocket(socket_, startPatience).receive(0).has_value();
    if (!isReady) stop();
    return isReady;
}

void IconRenderer::stop() {
    if (process_ < 0) return;
    ::close(socket_);
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = -1;
    socket_ = -1;
}

std::optional<Data> IconRenderer::render(DataView picture) {
    if (picture.size() > maxPictureBytes) return Data();
    if (process_ < 0 && !start()) return std::nullopt;
    const MessageSocket messages(socket_, patience);
    auto icon = messages.send(picture) ? messages.receive(maxIconBytes) : std::nullopt;
    if (!icon) stop();
    if (!icon || !isIcon(*icon)) return Data();
    return icon;
}

} // namespace quillmar
