#include "Markdown/Lines.h"

#include "Platform/CharacterClass.h"
#include "Platform/UTF8.h"

#include <utility>

namespace quillmar::Markdown {
namespace {

constexpr std::size_t tabStop = 4;

constexpr unsigned char firstBeyondASCII = 0x80;

bool isSpaceOrTab(char c) { return c == ' ' || c == '\t'; }

/// Bytes of the trimmed character that \p text, which is not empty, ends with; 0 for another character.
std::size_t trimmedCharacterAtEnd(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.back());
    if (byte < firstBeyondASCII) return isSpaceOrTab(text.back()) ? 1 : 0;
    const UTF8::CodePoint last = UTF8::codePointBefore(text, text.size());
    return CharacterClass::isSpaceSeparator(last.value) ? last.length : 0;
}

std::size_t trimmedCharacterAtStart(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte < firstBeyondASCII) return isSpaceOrTab(text.front()) ? 1 : 0;
    const UTF8::CodePoint first = UTF8::codePointAt(text, 0);
    return CharacterClass::isSpaceSeparator(first.value) ? first.length : 0;
}

void appendWithLeadingTabsExpanded(std::string& text, std::string_view line) {
    std::size_t column = 0;
    std::size_t i = 0;
    for (; i < line.size() && isSpaceOrTab(line[i]); ++i)
        column += line[i] == '\t' ? tabStop - column % tabStop : 1;
    text.append(column, ' ').append(line.substr(i));
}

/// The start of the first line that has a tab among its leading spaces and tabs.
std::size_t firstLineWithLeadingTab(std::string_view text) {
    std::size_t searched = 0; // no leading white space that began before goes on behind
    for (std::size_t tab = text.find('\t'); tab != text.npos; tab = text.find('\t', tab + 1)) {
        std::size_t start = tab;
        while (start > searched && text[start - 1] == ' ') --start;
        if (start == 0 || text[start - 1] == '\n') return start;
        searched = tab + 1;
    }
    return text.npos;
}

/// Every "\r\n" and every other "\r" of \p text as "\n", in place.
void replaceCarriageReturns(std::string& text) {
    std::size_t end = text.find('\r'); // of what is already in its place
    for (std::size_t i = end; i < text.size(); ++i) {
        const bool isFirstOfTwo = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (isFirstOfTwo) continue;
        text[end++] = text[i] == '\r' ? '\n' : text[i];
    }
    text.resize(end);
}

} // namespace

std::string_view trimmedStart(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = trimmedCharacterAtStart(text);
        if (length == 0) break;
        text.remove_prefix(length);
    }
    return text;
}

std::string_view trimmedAtBothEnds(std::string_view text) {
    text = trimmedStart(text);
    while (!text.empty()) {
        const std::size_t length = trimmedCharacterAtEnd(text);
        if (length == 0) break;
        text.remove_suffix(length);
    }
    return text;
}

bool isLineTerminator(char32_t character) {
    constexpr char32_t nextLine = 0x85;
    constexpr char32_t lineSeparator = 0x2028;
    constexpr char32_t paragraphSeparator = 0x2029;
    return (character >= '\n' && character <= '\r') || character == nextLine || character == lineSeparator ||
           character == paragraphSeparator;
}

std::string expandLeadingTabs(std::string_view line) {
    std::string expanded;
    expanded.reserve(line.size());
    appendWithLeadingTabsExpanded(expanded, line);
    return expanded;
}

std::string normalizedLines(std::string markdown) {
    if (markdown.find('\r') != markdown.npos) replaceCarriageReturns(markdown);

    const std::size_t unchanged = firstLineWithLeadingTab(markdown);
    if (unchanged == markdown.npos) return markdown;
    std::string text;
    text.reserve(markdown.size() + markdown.size() / 4);
    text.append(markdown, 0, unchanged);
    LineReader lines(std::string_view(markdown).substr(unchanged));
    while (true) {
        appendWithLeadingTabsExpanded(text, lines.next());
        if (lines.atEnd()) return text;
        text += '\n';
    }
}

} // namespace quillmar::Markdown
