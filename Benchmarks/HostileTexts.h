#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// What hostile documents are made of: texts of any size.
namespace quillmar::HostileTexts {

using Document = std::function<std::string(std::size_t bytes)>;

std::string times(std::size_t count, std::string_view unit);

/// \p start, then \p unit again and again.
Document repeated(std::string unit, std::string start = "");

/// As many times \p opening as \p closing, \p middle between them.
Document matched(std::string opening, std::string middle, std::string closing);

/// \p first fills half of the bytes, \p second the rest.
Document halves(std::string first, std::string second);

/// part(0), part(1) and so on.
Document numbered(std::function<std::string(std::size_t index)> part);

/// \p start, then lines that begin with ever more times \p unit and end with \p end: the text is the square of
/// the deepest line.
Document growing(std::string unit, std::string end, std::string start = "");

/// A line of \p opening again and again, then lines made for its depth. It is so deep that there are about as
/// many lines as levels.
Document square(std::string opening, std::function<std::string(std::size_t depth)> line);

std::string spaces(std::size_t count);

/// Short, another one for each \p number.
std::string label(std::size_t number);

} // namespace quillmar::HostileTexts
