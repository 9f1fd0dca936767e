#pragma once

/// The command: arguments in, exit status out.
namespace quillmar::CommandLine {

/// Exit statuses; other programs depend on them.
enum class ExitStatus {
    made = 0,   ///< a page was made; a page that says why nothing can be shown is one
    failed = 1, ///< the item does not exist or the output cannot be written
    usage = 2,  ///< the arguments make no sense
};

/// Reports every failure in one line on standard error.
ExitStatus run(int argc, const char* const* argv);

} // namespace quillmar::CommandLine
