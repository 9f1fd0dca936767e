#pragma once

#include "Platform/UTF8.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/// Lines of a document, without their line feeds.
namespace quillmar::Markdown {

/// Nothing but spaces (U+0020) and tabs.
inline bool isBlank(std::string_view line) {
    return std::all_of(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
}

/// Leading spaces (U+0020). A tab has none: leading tabs have been expanded before.
inline std::size_t indentation(std::string_view line) {
    std::size_t count = 0;
    while (count < line.size() && line[count] == ' ') ++count;
    return count;
}

/// Without the leading and trailing horizontal white space (general category Zs, and TAB).
std::string_view trimmedAtBothEnds(std::string_view text);
std::string_view trimmedStart(std::string_view text);

/// The same as `trimmedAtBothEnds`, without a call for no text, and for one that begins and ends with letters
/// of ASCII.
inline std::string_view trimmed(std::string_view text) {
    const auto isKept = [](char c) { return c > ' ' && UTF8::isASCII(c); };
    if (text.empty() || (isKept(text.front()) && isKept(text.back()))) return text;
    return trimmedAtBothEnds(text);
}

/// Without at most \p count leading spaces.
inline std::string_view withoutIndentation(std::string_view line, std::size_t count) {
    return line.substr(indentation(line.substr(0, count)));
}

/// What a regular expression takes for the end of a line (Unicode technical standard 18, RL1.6). All but the
/// line feed may stand inside our lines.
bool isLineTerminator(char32_t character);

/// The leading tabs and spaces of \p line as spaces, with tab stops every 4 columns; tabs behind them stay.
std::string expandLeadingTabs(std::string_view line);

/// \p markdown with every line break a line feed and every line's leading tabs expanded.
std::string normalizedLines(std::string markdown);

/// Hands out the lines of a text one by one. A line break at the end is followed by one more, empty line.
class LineReader {
public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return atEnd_; }

    /// Not to be called at the end.
    std::string_view next() {
        const std::size_t end = rest_.find('\n');
        const std::string_view line = rest_.substr(0, end);
        atEnd_ = end == rest_.npos;
        rest_.remove_prefix(atEnd_ ? rest_.size() : end + 1);
        return line;
    }

private:
    std::string_view rest_;
    bool atEnd_ = false;
};

} // namespace quillmar::Markdown
