#pragma once

#include "Platform/DateFormat.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmar {

/// The place of a node in its tree's vector. The root is 0, and parents stand before their children.
using NodeIndex = std::uint32_t;

/// A file or folder of an archive. Sums and links are those of `ArchiveTree::finish`.
struct ArchiveNode {
    std::string_view name;           ///< the last path component; a view of the entry that named it first
    bool isDirectory = false;        ///< also when the archive only names what is in it
    std::int64_t size = 0;           ///< bytes, unpacked; of a folder: the sum of what is in it
    std::int64_t compressedSize = 0; ///< bytes, 0 where unknown; of a folder: the sum of what is in it
    std::optional<Timestamp> modified;
    bool isEncrypted = false; ///< of a folder: something in it is
    bool isLink = false;
    std::int64_t descendantCount = 0; ///< nodes beneath this one

    NodeIndex parent = 0;      ///< the root's own is 0
    NodeIndex firstChild = 0;  ///< in the order of insertion; 0: none
    NodeIndex nextSibling = 0; ///< 0: none
};

} // namespace quillmar
