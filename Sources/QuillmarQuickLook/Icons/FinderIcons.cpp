#include "QuillmarQuickLook/Icons/FinderIcons.h"

#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "Platform/ResourceValues.h"
#include "QuillmarQuickLook/Icons/BuiltInIcons.h"
#include "QuillmarQuickLook/Icons/CustomIcon.h"
#include "QuillmarQuickLook/Icons/DesktopIconTheme.h"
#include "QuillmarQuickLook/Icons/IconNames.h"

#include <sys/stat.h>

namespace quillmar {
namespace {

constexpr char separator = '\0'; // in no path

/// When the item at \p path was last changed, to the nanosecond; empty when there is none.
std::string timeOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return {};
    return std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec);
}

/// A theme is told by its folders' times as well: what is installed into it shows in them.
std::string timesOf(const FinderIcons::Places& places) {
    std::string times;
    for (const std::string& folder : places.folders) times += timeOf(folder + '/' + places.theme) + ' ';
    return times;
}

/// An icon as it is kept: with the file it was drawn from and that file's time.
struct KeptIcon {
    std::string_view path;
    std::string_view time;
    std::string_view png; ///< empty: the file cannot be drawn

    Data joined() const {
        Data data(path);
        data.append(1, separator).append(time).append(1, separator).append(png);
        return data;
    }

    static std::optional<KeptIcon> split(std::string_view data) {
        const std::size_t first = data.find(separator);
        if (first == data.npos) return std::nullopt;
        const std::size_t second = data.find(separator, first + 1);
        if (second == data.npos) return std::nullopt;
        return KeptIcon{.path = data.substr(0, first),
                        .time = data.substr(first + 1, second - first - 1),
                        .png = data.substr(second + 1)};
    }
};

std::optional<Data> nonEmpty(std::string_view png) {
    if (png.empty()) return std::nullopt;
    return Data(png);
}

/// Old entries name their icon as the file that it once was.
std::string withoutExtension(const std::string& name) {
    for (const std::string_view extension : {".png", ".svg", ".xpm"})
        if (name.ends_with(extension)) return name.substr(0, name.size() - extension.size());
    return name;
}

} // namespace

FinderIcons::Places FinderIcons::standardPlaces() {
    Places places{.folders = IconFinder::standardFolders(),
                  .theme = {},
                  .cache = IconCache::standardFolder(),
                  .renderer = IconRenderer::standardProgram()};
    places.theme = desktopIconTheme(places.folders);
    return places;
}

FinderIcons::FinderIcons(Places places)
    : places_(std::move(places)), themeTimes_(timesOf(places_)), cache_(places_.cache),
      renderer_(places_.renderer) {}

std::optional<Data> FinderIcons::iconForType(std::string_view identifier) {
    const auto type = UniformType::withIdentifier(identifier);
    return iconNamed(type ? IconNames::ofType(*type) : IconNames::ofUnknown());
}

std::optional<Data> FinderIcons::iconForFile(const FileURL& url) {
    const auto values = resourceValues(url);
    const bool isFolder = values && values->isDirectory && !values->isPackage;
    const auto type = values ? values->contentType : std::nullopt;
    if (const auto icon = customIcon(url)) {
        if (icon->starts_with('/')) return iconInFile(*icon);
        std::vector<std::string> names = type ? IconNames::ofType(*type) : IconNames::ofUnknown();
        names.insert(names.begin(), withoutExtension(*icon));
        return iconNamed(names);
    }
    if (isFolder || !type) return std::nullopt; // like any other
    return iconNamed(IconNames::ofType(*type));
}

std::optional<Data> FinderIcons::iconNamed(const std::vector<std::string>& names) {
    std::string key = places_.theme + separator + themeTimes_;
    for (const std::string& name : names) key += separator + name;
    const auto entry = cache_.find(key);
    const auto icon = entry ? KeptIcon::split(*entry) : std::nullopt;
    if (icon && timeOf(std::string(icon->path)) == icon->time) return nonEmpty(icon->png);

    if (const auto path = finder().find(names)) return draw(key, *path);
    for (const std::string& name : names) {
        const std::string_view svg = BuiltInIcons::svg(name);
        if (svg.empty()) continue;
        return kept(key, {}, {}, renderer_.render(svg));
    }
    return std::nullopt;
}

std::optional<Data> FinderIcons::iconInFile(const std::string& path) {
    const auto entry = cache_.find(path);
    const auto icon = entry ? KeptIcon::split(*entry) : std::nullopt;
    if (icon && timeOf(path) == icon->time) return nonEmpty(icon->png);
    return draw(path, path);
}

std::optional<Data> FinderIcons::draw(const std::string& key, const std::string& path) {
    const std::string time = timeOf(path);
    try {
        const FileURL url = FileURL::standardized(path, FileURL::root());
        return kept(key, path, time, renderer_.render(readPrefix(url, IconRenderer::maxPictureBytes + 1)));
    } catch (const FileError&) {
        return std::nullopt;
    }
}

/// Keeps what has been drawn; what cannot be drawn is remembered as well, but not that nothing draws.
std::optional<Data> FinderIcons::kept(const std::string& key, const std::string& path, const std::string& time,
                                      std::optional<Data> png) {
    if (!png) return std::nullopt;
    cache_.store(key, KeptIcon{.path = path, .time = time, .png = *png}.joined());
    return nonEmpty(*png);
}

const IconFinder& FinderIcons::finder() {
    if (!finder_) finder_.emplace(places_.theme, places_.folders);
    return *finder_;
}

} // namespace quillmar
