#pragma once

#include "Platform/DateFormat.h"
#include "Platform/FileURL.h"
#include "Support/FileKind.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// A child of the folder that is previewed.
struct FolderItem {
    FileURL url;
    std::string name = {};                 ///< as people see it
    bool isFolder = false;                 ///< neither a package nor a link to a folder
    bool isHidden = false;                 ///< the name begins with a dot
    std::optional<std::int64_t> size = {}; ///< bytes; none when a folder could not be measured at all
    bool isSizeComplete = false;           ///< false when measuring stopped before the end, or never began
    std::optional<Timestamp> modified = {};
    std::optional<std::string_view> typeIdentifier = {}; ///< of the type table
    FileKind kind = FileKind::other;
};

} // namespace quillmar
