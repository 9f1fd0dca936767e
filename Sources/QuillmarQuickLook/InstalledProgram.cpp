#include "QuillmarQuickLook/InstalledProgram.h"

#include <array>
#include <climits>
#include <string_view>
#include <unistd.h>

namespace quillmar {

std::string installedProgram(const std::string& name) {
    std::array<char, PATH_MAX> path{};
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return {};
    const std::string_view program(path.data(), static_cast<std::size_t>(length));
    const std::string folder(program.substr(0, program.rfind('/')));
    for (const char* place : {"/", "/../" QUILLMAR_LIBEXEC "/", "/../../" QUILLMAR_BIN "/"}) {
        std::string candidate = folder;
        candidate.append(place).append(name);
        if (::access(candidate.c_str(), X_OK) == 0) return candidate;
    }
    return {};
}

} // namespace quillmar
