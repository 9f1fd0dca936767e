#pragma once

#include "Platform/FileURL.h"

#include <optional>
#include <string>

namespace quillmar {

/// The icon that an item has for itself: a name in the theme, or the absolute path of a picture. What its user
/// has chosen in the file manager; else of a folder what its `.directory` file says, or what folders like it
/// are called (the home folder, those of `user-dirs.dirs`), of a `.desktop` file its application's. None for
/// all others.
std::optional<std::string> customIcon(const FileURL& url);

} // namespace quillmar
