#pragma once

#include "Platform/UniformType.h"

#include <array>
#include <optional>
#include <string_view>

namespace quillmar {

/// The nine broad kinds of item in a composition bar, in the order in which equal sizes stand.
enum class FileKind { folders, apps, documents, images, video, audio, code, archives, other };

inline constexpr std::array allFileKinds{
    FileKind::folders, FileKind::apps, FileKind::documents, FileKind::images, FileKind::video,
    FileKind::audio,   FileKind::code, FileKind::archives,  FileKind::other,
};

/// By type alone, never by content. \p isFolder wins over any type.
FileKind fileKind(std::optional<UniformType> type, bool isFolder);

/// "folders", "apps", ...: the name of the case.
std::string_view rawValue(FileKind kind);
std::optional<FileKind> fileKindWithRawValue(std::string_view rawValue);

} // namespace quillmar
