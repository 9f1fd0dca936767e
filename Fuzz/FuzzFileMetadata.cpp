#include "Fuzz/FuzzTarget.h"
#include "QuillmarQuickLook/Icons/FileMetadata.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace quillmar {
namespace {

/// The first bytes of an input say, the lowest first, how many of the others are the tree; the rest is the
/// journal.
constexpr std::size_t lengthBytes = 4;

std::size_t length(DataView bytes) {
    std::size_t length = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) length = length << 8U | static_cast<unsigned char>(bytes[i]);
    return length;
}

} // namespace

void fuzz(DataView input) {
    if (input.size() < lengthBytes) return;
    const DataView files = input.substr(lengthBytes);
    const std::size_t treeBytes = std::min(length(input.substr(0, lengthBytes)), files.size());
    const DataView tree = files.substr(0, treeBytes);
    const DataView journal = files.substr(treeBytes);
    const auto name = FileMetadata::journalName(tree, "home");
    if (name) require(name->size() == std::string("home-01234567.log").size());
    for (const auto* path : {"/", "/a", "/a/x", "/music/papers/sub/c.txt"}) {
        const auto text = FileMetadata::text(tree, journal, path, "custom-icon");
        if (!text) continue;
        // It comes from one of the files, whole.
        require(name && text->size() <= FileMetadata::maxTextBytes);
        require(text->find('\0') == text->npos);
        require(files.find(*text) != files.npos);
    }
}

} // namespace quillmar
