#pragma once

#include <string>
#include <vector>

/// Whole commands, from exec to exit.
namespace quillmar::CommandRun {

/// Begins with a program that is found by PATH.
using Command = std::vector<std::string>;

/// Seconds by the wall clock that \p command takes, its output thrown away. Throws std::runtime_error when it
/// cannot be run or fails.
double seconds(const Command& command);

/// The peak of the host's resident memory, of the larger of its two processes, when it makes the page of \p
/// path.
double hostPeakMegabytes(const std::string& path);

/// The host that was built beside the benchmarks, as it makes the page of \p path without icons.
Command host(const std::string& path);

} // namespace quillmar::CommandRun
