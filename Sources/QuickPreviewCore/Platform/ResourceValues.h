#pragma once

#include "Platform/FileURL.h"
#include "Platform/UniformType.h"

#include <cstdint>
#include <optional>

namespace quillmar {

/// What the file system says of an item without opening it.
struct ResourceValues {
    bool isDirectory = false;
    bool isPackage = false;                 ///< a directory that is shown as one file
    std::optional<UniformType> contentType; ///< none for unknown extensions, pipes, sockets and devices
    std::optional<std::int64_t> fileSize;   ///< bytes, as reported; none for a directory
    bool operator==(const ResourceValues&) const = default;
};

/// The values of the item at \p url; a symbolic link answers for its target. None when the item cannot be
/// asked.
std::optional<ResourceValues> resourceValues(const FileURL& url);

/// False when nothing bears that name; a broken symbolic link exists, and so does what may not be looked at.
bool itemExists(const FileURL& url);

} // namespace quillmar
