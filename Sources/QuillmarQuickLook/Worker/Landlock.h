#pragma once

#include "Platform/FileURL.h"

#include <optional>

/// The kernel's own rules for what a process may open (Linux 5.13 and later).
namespace quillmar::Landlock {

/// From now on this thread and those it starts can read the file at \p item, or beneath the folder there, and
/// open nothing else; nothing at all without an item, or when it is gone. False when the kernel does not know
/// how.
bool restrictTo(const std::optional<FileURL>& item);

/// The version of the kernel's rules; 0 when it has none.
int version();

} // namespace quillmar::Landlock
