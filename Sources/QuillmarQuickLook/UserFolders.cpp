#include "QuillmarQuickLook/UserFolders.h"

#include <cstdlib>

namespace quillmar::UserFolders {
namespace {

std::string absolute(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : std::string();
}

std::string absoluteOrInHome(const char* variable, const char* below) {
    std::string folder = absolute(variable);
    if (!folder.empty()) return folder;
    folder = home();
    return folder.empty() ? folder : folder.append(below);
}

} // namespace

std::string home() { return absolute("HOME"); }
std::string data() { return absoluteOrInHome("XDG_DATA_HOME", "/.local/share"); }
std::string config() { return absoluteOrInHome("XDG_CONFIG_HOME", "/.config"); }
std::string cache() { return absoluteOrInHome("XDG_CACHE_HOME", "/.cache"); }

} // namespace quillmar::UserFolders
