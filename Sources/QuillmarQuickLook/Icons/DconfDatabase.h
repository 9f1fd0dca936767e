#pragma once

#include "Platform/Data.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The settings that GNOME and its relatives keep in one file, `dconf/user` (a GVDB hash table).
namespace quillmar::DconfDatabase {

/// The text that \p database holds under \p key ("/org/gnome/desktop/interface/icon-theme"); none when there is
/// none, the value is no text, or this is no such database.
std::optional<std::string> text(DataView database, std::string_view key);

/// Bytes of a database that are read. Users' have a few dozen KB.
inline constexpr std::size_t maxBytes = 1'048'576;

} // namespace quillmar::DconfDatabase
