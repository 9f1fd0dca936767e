#pragma once

#include <string>

/// Where this user's files lie: absolute paths by the environment (HOME, XDG_DATA_HOME and the like), which may
/// hold anything. Empty where it names no absolute path.
namespace quillmar::UserFolders {

std::string home();
std::string data();   ///< XDG_DATA_HOME, or ~/.local/share
std::string config(); ///< XDG_CONFIG_HOME, or ~/.config
std::string cache();  ///< XDG_CACHE_HOME, or ~/.cache

} // namespace quillmar::UserFolders
