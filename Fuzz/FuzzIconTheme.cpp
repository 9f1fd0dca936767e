#include "Fuzz/FuzzTarget.h"
#include "QuillmarQuickLook/Icons/IconTheme.h"

#include <algorithm>
#include <array>

namespace quillmar {
namespace {

/// The largest size, threshold and scale that an index can name: (4,096 + 4,096) * 8 pixels.
constexpr int largestSide = 65'536;

bool hasPart(DataView path, DataView wanted) {
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (path.substr(0, end) == wanted) return true;
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return false;
}

void requireSoundness(const IconDirectory& directory) {
    require(!directory.path.empty());
    require(!directory.path.starts_with('/'));
    require(!hasPart(directory.path, ".."));
    require(directory.size > 0);
    require(directory.minSize >= 0 && directory.maxSize >= 0 && directory.threshold >= 0);
    require(directory.scale >= 1);
    for (const int pixels : std::array{0, 1, 16, 128, largestSide}) {
        require(directory.distance(pixels) >= 0);
        require(directory.distance(pixels) <= 2 * largestSide);
    }
    require(!directory.isSmallerThan(0));
    require(directory.isSmallerThan(largestSide + 1));
}

} // namespace

void fuzz(DataView input) {
    const IconTheme theme = IconTheme::parse(Data(input));
    require(theme.directories.size() <= IconTheme::maxDirectories);
    for (const IconDirectory& directory : theme.directories) requireSoundness(directory);
    std::size_t nameBytes = 0;
    for (const std::string& parent : theme.inherits) {
        require(!parent.empty());
        require(parent.find(',') == std::string::npos && parent.find('\n') == std::string::npos);
        nameBytes += parent.size();
    }
    require(nameBytes <= input.size());
}

} // namespace quillmar
