#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Markdown as people write it, made the same every time. How often what stands in it was counted in some
/// hundred READMEs and manuals of programs: half of a README's bytes are paragraphs, a sixth each code and
/// lists; in a manual there is twice as much code.
namespace quillmar::MarkdownSamples {

/// The documentation of a program: \p bytes, and what it takes to end the last block and define its references.
std::string documentation(std::size_t bytes, std::uint64_t seed);

/// Fifty READMEs of 3 to 40 KB: some little more than a list, some nearly all code, some in other scripts.
std::vector<std::string> readmes();

/// Paragraphs with an emphasis, a code span or a link every few sentences and nothing else: at most \p bytes.
std::string prose(std::size_t bytes);

} // namespace quillmar::MarkdownSamples
