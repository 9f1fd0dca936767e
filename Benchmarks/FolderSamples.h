#pragma once

#include <string>

/// Folders for benchmarks. Each returns the path of one that the first call makes.
namespace quillmar::FolderSamples {

/// \p folders of 1,000 files each.
std::string wide(int folders);

/// \p files and nothing else.
std::string flat(int files);

/// One folder in which 9,841 nest with 7 files each.
std::string deep();

/// 1,000 folders of 1,000 files, 40 in one.
std::string million();

} // namespace quillmar::FolderSamples
