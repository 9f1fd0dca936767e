#pragma once

#include "Platform/FileURL.h"

#include <optional>
#include <string>

namespace quillmar {

/// The icon that its owner has given the item in GNOME's file manager or a relative of it: a name in the theme,
/// or the absolute path of a picture that can be read.
///
/// gvfs keeps it, for what lies below the home folder and on the file system of the root; what it keeps of
/// other file systems is not looked for.
std::optional<std::string> iconInMetadata(const FileURL& url);

} // namespace quillmar
