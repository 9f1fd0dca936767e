#pragma once

#include <string>

/// Folders for benchmarks.
namespace quillmar::FolderSamples {

/// The path of a folder, made by the first call that asks for it: "wide" holds 100 folders of 1,000 files,
/// "deep" one folder in which 11,000 nest with 7 files each, "flat" 100,000 files, "million" 1,000 folders of
/// 1,000 files, 40 in one.
std::string folder(const std::string& name);

} // namespace quillmar::FolderSamples
