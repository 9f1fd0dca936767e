#pragma once

#include <cstddef>
#include <string>

/// Input for benchmarks, made the same every time.
namespace quillmar::Samples {

/// C++ that looks like C++: \p bytes of declarations, calls, templates, strings and comments.
std::string sourceCode(std::size_t bytes);

/// Writes \p content to a file in the system's temporary folder and returns its path.
std::string file(const std::string& name, const std::string& content);

} // namespace quillmar::Samples
