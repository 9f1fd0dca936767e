#pragma once

#include "Platform/FileURL.h"

#include <optional>

/// What a process gives up before it reads what strangers have made. Each mechanism stands without the others:
/// where the kernel lacks one, the rest remain.
namespace quillmar::Confinement {

/// Which mechanisms are in force.
struct InForce {
    bool resourceLimits = false;
    bool landlock = false; ///< files: the item alone
    bool seccomp = false;  ///< system calls: those of an allow list
    bool operator==(const InForce&) const = default;
};

/// Confines this process for ever, to be called while it has one thread: it can read the file at \p item, or
/// beneath the folder there, and open nothing else; without an item nothing at all. It can write nothing, start
/// nothing, signal nobody and reach no network. What is open stays open.
InForce confineTo(const std::optional<FileURL>& item);

} // namespace quillmar::Confinement
