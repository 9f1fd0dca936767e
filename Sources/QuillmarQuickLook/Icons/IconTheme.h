#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// A folder of a theme, with the sizes that its icons are meant for (freedesktop.org,
/// icon themes).
struct IconDirectory {
    enum class Type { fixed, scalable, threshold };

    std::string path; ///< below the theme's folder
    Type type = Type::threshold;
    int size = 0; ///< pixels at scale 1, as the others
    int minSize = 0;
    int maxSize = 0;
    int threshold = 0;
    int scale = 1;

    /// How far its icons are from \p pixels, 0 when they are meant for it.
    int distance(int pixels) const;
    /// True when its icons would have to be enlarged to \p pixels.
    bool isSmallerThan(int pixels) const;

private:
    /// Pixels, both inclusive.
    struct Range {
        int smallest;
        int largest;
    };
    Range range() const;
};

/// What a theme's index says.
struct IconTheme {
    std::vector<std::string> inherits;
    std::vector<IconDirectory> directories;

    /// The theme that \p index, the content of its `index.theme`, describes; without anything in it when that
    /// is no index. Folders that lead out of the theme are left out.
    static IconTheme parse(std::string index);

    /// Folders of one theme that are looked at. The largest themes have some 300.
    static constexpr std::size_t maxDirectories = 1'024;
};

} // namespace quillmar
