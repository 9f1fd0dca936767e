#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// How a page begins, for a screen reader: the text of its body on one line, at most `maxSpokenBytes`.
/// \p html is read in part only, however long it is.
std::string spokenText(std::string_view html);

/// Some minutes of speech.
inline constexpr std::size_t maxSpokenBytes = 4'096;

} // namespace quillmar
