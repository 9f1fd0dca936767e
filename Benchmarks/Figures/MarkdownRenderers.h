#pragma once

#include <cstddef>
#include <string>

/// Ours and the libraries that people use, with the same extensions. Each renders a document and returns the
/// length of its HTML.
namespace quillmar::MarkdownRenderers {

std::size_t ours(const std::string& markdown);
std::size_t cmark(const std::string& markdown);
std::size_t md4c(const std::string& markdown);

} // namespace quillmar::MarkdownRenderers
