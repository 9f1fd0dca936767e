#include "Support/FileKind.h"

#include <algorithm>

namespace quillmar {
namespace {

struct Family {
    std::string_view identifier;
    FileKind kind;
};

/// The first family that a type conforms to decides. Source code and the structured formats are kinds of text,
/// so they stand before it.
constexpr std::array families{
    Family{"com.apple.application", FileKind::apps},
    Family{"com.apple.application-bundle", FileKind::apps},
    Family{"public.image", FileKind::images},
    Family{"public.movie", FileKind::video},
    Family{"public.video", FileKind::video},
    Family{"public.audio", FileKind::audio},
    Family{"public.archive", FileKind::archives},
    Family{"public.disk-image", FileKind::archives},
    Family{"public.source-code", FileKind::code},
    Family{"public.script", FileKind::code},
    Family{"public.json", FileKind::code},
    Family{"public.yaml", FileKind::code},
    Family{"com.apple.property-list", FileKind::code},
    Family{"public.xml", FileKind::code},
    Family{"public.text", FileKind::documents},
    Family{"com.adobe.pdf", FileKind::documents},
    Family{"public.presentation", FileKind::documents},
    Family{"public.spreadsheet", FileKind::documents},
    Family{"public.composite-content", FileKind::documents},
};

/// In the order of the enumeration.
constexpr std::array<std::string_view, allFileKinds.size()> rawValues{
    "folders", "apps", "documents", "images", "video", "audio", "code", "archives", "other",
};

} // namespace

FileKind fileKind(std::optional<UniformType> type, bool isFolder) {
    if (isFolder) return FileKind::folders;
    if (!type) return FileKind::other;
    for (const Family& family : families)
        if (type->conformsTo(family.identifier)) return family.kind;
    return FileKind::other;
}

std::string_view rawValue(FileKind kind) { return rawValues[static_cast<std::size_t>(kind)]; }

std::optional<FileKind> fileKindWithRawValue(std::string_view rawValue) {
    const auto found = std::ranges::find(rawValues, rawValue);
    if (found == rawValues.end()) return std::nullopt;
    return allFileKinds[static_cast<std::size_t>(found - rawValues.begin())];
}

} // namespace quillmar
