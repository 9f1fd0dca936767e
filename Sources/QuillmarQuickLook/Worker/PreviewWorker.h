#pragma once

/// The process that makes one preview and trusts nobody.
namespace quillmar::PreviewWorker {

/// The argument that makes a worker of the program.
inline constexpr const char* argument = "--preview-worker";

/// Where the socket to the host stands open.
inline constexpr int socketDescriptor = 0;

/// The first character of what a host wants; the path of the item is behind it.
enum class Job : char {
    preview = '0',
    previewWithIcons = '1',
    reportConfinement = '2', ///< without a path; see `ConfinedPreview::confinement`
};

/// Takes a path from the host, confines itself, makes the preview and hands it over. Returns the process's exit
/// status.
int run();

} // namespace quillmar::PreviewWorker
