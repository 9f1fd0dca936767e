#pragma once

#include <string>
#include <vector>

/// The role of the previewer that file managers call when the user presses the space bar: taken for this user
/// by files in the user's data folder, without root, and given back by removing them.
namespace quillmar::PreviewRole {

struct Places {
    std::string dataFolder; ///< XDG_DATA_HOME, or ~/.local/share
    std::string viewer;     ///< absolute path of the program that shows previews
};
/// Those of this user and this installation.
Places standardPlaces();

/// What was done, a sentence for each thing, and what takes effect when.
struct Report {
    std::vector<std::string> lines;
    bool succeeded = false; ///< else the last line says what is wrong and what to do
};

/// Writes the service files of the names that file managers call, so that they win over the system's.
Report install(const Places& places);
/// Removes those files, if they are ours: one that another program has written stays, and the report says so.
Report uninstall(const Places& places);

} // namespace quillmar::PreviewRole
