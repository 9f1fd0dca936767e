#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// What stands between the first \p start and the next \p end behind it; empty when one is missing.
inline std::string between(std::string_view text, std::string_view start, std::string_view end) {
    const std::size_t from = text.find(start);
    if (from == text.npos) return {};
    const std::size_t to = text.find(end, from + start.size());
    if (to == text.npos) return {};
    return std::string(text.substr(from + start.size(), to - from - start.size()));
}

inline std::size_t occurrences(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++count;
    return count;
}

/// The facts of a page's header, as markup.
inline std::string factsOf(std::string_view html) { return between(html, "<p class=\"facts\">", "</p>"); }

/// The sentence of a message page, as markup; empty for any other page.
inline std::string messageOf(std::string_view html) {
    return between(between(html, "<div class=\"message\">", "</div>"), "<p>", "</p>");
}

} // namespace quillmar
