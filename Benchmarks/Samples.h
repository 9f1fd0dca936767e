#pragma once

#include <cstddef>
#include <string>

/// Input for benchmarks, made the same every time.
namespace quillmar::Samples {

/// C++ that looks like C++: \p bytes of declarations, calls, templates, strings and comments.
std::string sourceCode(std::size_t bytes);

/// Writes \p content to a file in the system's temporary folder and returns its path.
std::string file(const std::string& name, const std::string& content);

/// The path of an archive, made by the first call that asks for it: "tree.zip", "tree.tar", "tree.tar.gz",
/// "tree-blocks.tar.xz" and "tree-one-block.tar.xz" hold 20,000 files of 300 MB in all, "large.tar.gz" ten of
/// 100 MB; "many.zip" holds 60,000 files of 100 bytes.
std::string archive(const std::string& name);

/// The path of an archive of the first \p files of that tree: ".zip", ".tar", ".tar.gz" or ".tar.xz", in
/// blocks.
std::string treeArchive(std::size_t files, const std::string& extension);

} // namespace quillmar::Samples
