#pragma once

#include "Platform/FileURL.h"

/// The kernel's own rules for what a process may open (Linux 5.13 and later).
namespace quillmar::Landlock {

/// From now on this thread and those it starts can read the file at \p item, or beneath the folder there, and
/// open nothing else. False when the kernel does not know how, or the item is gone.
bool restrictTo(const FileURL& item);

/// The version of the kernel's rules; 0 when it has none.
int version();

} // namespace quillmar::Landlock
