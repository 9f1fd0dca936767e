#pragma once

#include <string>
#include <vector>

/// What a worker finds in its environment: what this process does, and a way of getting memory that suits a
/// process which ends with its page. A document made to need a hundred megabytes otherwise spends up to half of
/// its time on getting them in small pages, giving them back, and getting them again.
namespace quillmar::WorkerEnvironment {

/// The GNU C library's manual, "Memory Allocation Tunables". Whoever has set them has them in workers as they
/// are.
inline constexpr const char* allocatorTunables = "GLIBC_TUNABLES";
/// Large pages, where the kernel leaves them to those who ask; all from one heap (of less than the first
/// threshold), which keeps what it has (up to the second).
inline constexpr const char* memoryOfWorkers = "glibc.malloc.hugetlb=1"
                                               ":glibc.malloc.mmap_threshold=1073741824"
                                               ":glibc.malloc.trim_threshold=1073741824";

/// "NAME=value" each.
std::vector<std::string> variables();

} // namespace quillmar::WorkerEnvironment
