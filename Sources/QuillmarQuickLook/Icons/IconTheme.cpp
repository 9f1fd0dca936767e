#include "QuillmarQuickLook/Icons/IconTheme.h"

#include "QuillmarQuickLook/Icons/KeyFile.h"

#include <algorithm>
#include <charconv>

namespace quillmar {
namespace {

constexpr std::string_view themeGroup = "Icon Theme";

/// Pixels. Larger icons than this are an error of the index.
constexpr int maxSize = 4'096;
constexpr int maxScale = 8;

/// By which the size of a folder may differ where the index says nothing.
constexpr int defaultThreshold = 2;

/// The parts of "a,b,c" that are not empty.
std::vector<std::string_view> list(std::optional<std::string_view> value) {
    std::vector<std::string_view> parts;
    std::string_view rest = value.value_or(std::string_view());
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(','), rest.size());
        std::string_view part = rest.substr(0, end);
        part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
        while (part.ends_with(' ')) part.remove_suffix(1);
        if (!part.empty()) parts.push_back(part);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return parts;
}

/// \p fallback where there is no number between 0 and \p limit.
int number(std::optional<std::string_view> value, int fallback, int limit) {
    int number = 0;
    if (!value) return fallback;
    const auto [end, error] = std::from_chars(value->data(), value->data() + value->size(), number);
    const bool isNumber = error == std::errc() && end == value->data() + value->size();
    return isNumber && number >= 0 && number <= limit ? number : fallback;
}

IconDirectory::Type typeNamed(std::optional<std::string_view> name) {
    if (name == "Fixed") return IconDirectory::Type::fixed;
    if (name == "Scalable") return IconDirectory::Type::scalable;
    return IconDirectory::Type::threshold;
}

bool staysInside(std::string_view path) {
    if (path.starts_with('/')) return false;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (path.substr(0, end) == "..") return false;
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return true;
}

} // namespace

IconDirectory::Range IconDirectory::range() const {
    switch (type) {
    case Type::fixed: return {.smallest = size * scale, .largest = size * scale};
    case Type::scalable: return {.smallest = minSize * scale, .largest = maxSize * scale};
    case Type::threshold: break;
    }
    return {.smallest = (size - threshold) * scale, .largest = (size + threshold) * scale};
}

int IconDirectory::distance(int pixels) const {
    const auto [smallest, largest] = range();
    return pixels < smallest ? smallest - pixels : std::max(pixels - largest, 0);
}

bool IconDirectory::isSmallerThan(int pixels) const { return range().largest < pixels; }

IconTheme IconTheme::parse(std::string index) {
    const KeyFile file(std::move(index));
    IconTheme theme;
    for (const std::string_view parent : list(file.value(themeGroup, "Inherits")))
        theme.inherits.emplace_back(parent);
    for (const auto* key : {"Directories", "ScaledDirectories"}) {
        for (const std::string_view path : list(file.value(themeGroup, key))) {
            if (theme.directories.size() == maxDirectories) return theme;
            const int size = number(file.value(path, "Size"), 0, maxSize);
            if (size == 0 || !staysInside(path)) continue;
            theme.directories.push_back(
                {.path = std::string(path),
                 .type = typeNamed(file.value(path, "Type")),
                 .size = size,
                 .minSize = number(file.value(path, "MinSize"), size, maxSize),
                 .maxSize = number(file.value(path, "MaxSize"), size, maxSize),
                 .threshold = number(file.value(path, "Threshold"), defaultThreshold, maxSize),
                 .scale = std::max(number(file.value(path, "Scale"), 1, maxScale), 1)});
        }
    }
    return theme;
}

} // namespace quillmar
