#pragma once

#include <string>
#include <string_view>

/// The file by which a session bus knows which program to start for a name (D-Bus, "Message Bus Starting
/// Services").
namespace quillmar::ServiceFile {

/// True for a path that a service file can hold: D-Bus wants UTF-8, and lines are lines.
bool canHold(std::string_view path);

/// The file that has \p program, a path that it can hold, started for \p busName. It is marked as ours.
std::string text(std::string_view busName, std::string_view program);

/// True when \p text begins as those that we write.
bool isOurs(std::string_view text);

} // namespace quillmar::ServiceFile
