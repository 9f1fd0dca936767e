#pragma once

/// The system calls that a worker can make.
namespace quillmar::SystemCallFilter {

/// From now on every system call but those that reading, computing, threads of this process and its open
/// descriptors need is refused (EPERM). Of all threads; for ever. False when the kernel cannot.
bool install();

} // namespace quillmar::SystemCallFilter
