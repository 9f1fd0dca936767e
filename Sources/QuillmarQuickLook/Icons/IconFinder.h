#pragma once

#include "QuillmarQuickLook/Icons/IconTheme.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillmar {

/// Finds icons in the desktop's themes.
class IconFinder {
public:
    /// \p theme is the user's; it and what it inherits are searched in \p folders, the user's own first: each
    /// parent with its own parents before the next one, and "hicolor" at last. Reads the themes' indices.
    IconFinder(const std::string& theme, const std::vector<std::string>& folders);

    /// The file of the first of \p names that there is, in the best size for \p pixels: a picture that is
    /// reduced looks better than one that is enlarged. A theme's own icon of a later name goes before an
    /// inherited one of an earlier. None when there is none, or it lies outside the folders.
    std::optional<std::string> find(const std::vector<std::string>& names) const;

    /// The folders of the desktop: HOME, XDG_DATA_HOME and XDG_DATA_DIRS of the environment say where.
    static std::vector<std::string> standardFolders();

    /// Pixels that icons are wanted in.
    static constexpr int wantedSize = 128;
    /// Themes that are searched, inherited ones included.
    static constexpr std::size_t maxThemes = 32;

private:
    struct Theme {
        std::vector<std::string> roots;         ///< a theme may lie in several of the folders
        std::vector<IconDirectory> directories; ///< the best first
    };

    void loadWithParents(const std::string& theme);
    std::optional<IconTheme> load(const std::string& name);
    std::optional<std::string> findIn(const Theme& theme, const std::string& name) const;
    std::optional<std::string> findWithoutTheme(const std::string& name) const;
    std::optional<std::string> fileAt(const std::string& stem) const;
    bool isInside(const std::string& path) const;

    std::vector<std::string> folders_;
    std::vector<Theme> themes_; ///< in the order of the search
};

} // namespace quillmar
