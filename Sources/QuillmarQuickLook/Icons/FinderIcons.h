#pragma once

#include "QuillmarQuickLook/Icons/IconCache.h"
#include "QuillmarQuickLook/Icons/IconFinder.h"
#include "QuillmarQuickLook/Icons/IconRenderer.h"
#include "Support/IconSource.h"

#include <optional>
#include <string>
#include <vector>

namespace quillmar {

/// The icons that the desktop's file manager shows, as PNG of 128 by 128 pixels: 64 points for screens of twice
/// the density. One thread.
class FinderIcons : public IconSource {
public:
    /// Where icons are looked for, kept and drawn.
    struct Places {
        std::vector<std::string> folders; ///< of themes
        std::string theme;
        std::string cache;    ///< empty: nothing is kept
        std::string renderer; ///< a program; empty: no icons but those that are kept
    };
    static Places standardPlaces();

    explicit FinderIcons(Places places);

    std::optional<Data> iconForType(std::string_view identifier) override;
    std::optional<Data> iconForFile(const FileURL& url) override;

private:
    std::optional<Data> iconNamed(const std::vector<std::string>& names);
    std::optional<Data> iconInFile(const std::string& path);
    std::optional<Data> draw(const std::string& key, const std::string& path);
    std::optional<Data> kept(const std::string& key, const std::string& path, const std::string& time,
                             std::optional<Data> png);
    const IconFinder& finder();

    Places places_;
    std::string themeTimes_; ///< when the theme's folders were last changed
    IconCache cache_;
    IconRenderer renderer_;
    std::optional<IconFinder> finder_; ///< made when something is not kept: it reads the themes
};

} // namespace quillmar
