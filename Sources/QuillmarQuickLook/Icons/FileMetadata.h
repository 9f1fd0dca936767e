#pragma once

#include "Platform/Data.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// What people have told GNOME's file manager of their files (gvfs, `metadata/file-format.txt`): a tree of
/// paths, and a journal of what has changed since the tree was written.
namespace quillmar::FileMetadata {

/// The text under \p key ("custom-icon") of the item at \p path ("/Music/old"); none when there is none, the
/// value is a list, or \p tree is no such tree. A journal that is damaged or belongs to another tree is none
/// from there on.
std::optional<std::string> text(DataView tree, DataView journal, std::string_view path, std::string_view key);

/// The file that holds the journal of \p tree, beside it: "home-8d2c0fc4.log" for one called "home". None when
/// this is no such tree.
std::optional<std::string> journalName(DataView tree, std::string_view name);

/// Bytes of a tree that are read. Thousands of files make some hundred KB.
inline constexpr std::size_t maxTreeBytes = 4'194'304;
/// Bytes of a journal that are read; gvfs makes them 32 KB. One that is larger is none.
inline constexpr std::size_t maxJournalBytes = 262'144;
/// Bytes of a text. A URI has three for each of the 4,096 of a path.
inline constexpr std::size_t maxTextBytes = 16'384;

} // namespace quillmar::FileMetadata
