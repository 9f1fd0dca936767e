#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Runs a program under strace, which can have a system call of it fail from outside. Nothing of the program
/// knows of that.
namespace quillmar {

/// What is to go wrong: that many calls of this name succeed, the next one fails.
struct Fault {
    std::string call;
    std::string error; ///< the system's name of it: "EIO"
    std::size_t occurrence = 1;
};

/// The command that runs \p program under strace, for a shell; its other threads and its children are let
/// alone. The calls are listed in \p log.
std::string tracing(const std::string& program, const std::filesystem::path& log);
/// The same with \p fault.
std::string failing(const std::string& program, const std::filesystem::path& log, const Fault& fault);

/// Makes an executable script of \p command at \p path that hands its arguments on.
void writeScript(const std::filesystem::path& path, const std::string& command);

/// What \p log holds of calls behind the first line with \p start in it: each kind of failure that is worth
/// trying, at its first occurrences, at the last, and at some between. Throws when \p start does not occur:
/// then strace does not work here.
std::vector<Fault> faultsBehind(const std::filesystem::path& log, std::string_view start);

/// Descriptors that are opened in \p log behind \p start, and not closed.
std::vector<std::string> leftOpen(const std::filesystem::path& log, std::string_view start);

} // namespace quillmar
