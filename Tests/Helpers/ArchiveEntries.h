#pragma once

#include "Archives/ArchiveEntry.h"

#include <string>
#include <utility>

namespace quillmar {

inline ArchiveEntry file(std::string path, std::int64_t size = 0) {
    ArchiveEntry entry;
    entry.path = std::move(path);
    entry.size = size;
    return entry;
}

inline ArchiveEntry folder(std::string path) {
    ArchiveEntry entry;
    entry.path = std::move(path);
    entry.isDirectory = true;
    return entry;
}

} // namespace quillmar
