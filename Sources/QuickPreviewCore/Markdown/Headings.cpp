#include "Markdown/Headings.h"

#include "Markdown/Lines.h"
#include "Markdown/TextBoundaries.h"
#include "Platform/UTF8.h"

namespace quillmar::Markdown {
namespace {

constexpr std::size_t maxLevel = 6;

std::size_t hashes(std::string_view text) {
    const std::size_t count = text.find_first_not_of('#');
    return count == text.npos ? text.size() : count;
}

/// Bytes of one line terminator at the end of \p text: closing hashes may stand before it.
std::size_t terminatorAtEnd(std::string_view text) {
    if (text.empty()) return 0;
    const UTF8::CodePoint last = UTF8::codePointBefore(text, text.size());
    return isLineTerminator(last.value) ? last.length : 0;
}

/// \p text without a closing run of hashes and the white space that must stand before it.
std::string_view withoutClosingSequence(std::string_view text) {
    if (text.find_first_not_of('#') == text.npos) return text.substr(0, 0);
    const std::string_view line = text.substr(0, text.size() - terminatorAtEnd(text));
    const std::size_t lastOther = line.find_last_not_of('#');
    const bool hasClosingHashes = lastOther != line.npos && lastOther + 1 < line.size();
    if (!hasClosingHashes) return text;
    const std::size_t textEnd = startOfWhiteSpace(line, 0, lastOther + 1);
    return textEnd <= lastOther ? line.substr(0, textEnd) : text;
}

} // namespace

std::optional<ATXHeading> ATXHeading::parse(const Line& line) {
    if (line.isIndentedAsCode() || line.first() != '#') return std::nullopt;
    const std::size_t level = hashes(line.content());
    if (level > maxLevel) return std::nullopt;
    const std::string_view rest = line.content().substr(level);
    const std::string_view text = trimmed(rest);
    if (!text.empty() && rest[0] != ' ') return std::nullopt;
    return ATXHeading{.level = static_cast<int>(level), .text = withoutClosingSequence(text)};
}

int setextLevel(const Line& line) {
    if (line.isIndentedAsCode() || (line.first() != '=' && line.first() != '-')) return 0;
    const std::string_view underline = trimmed(line.content());
    if (underline.find_first_not_of(line.first()) != underline.npos) return 0;
    return line.first() == '=' ? 1 : 2;
}

} // namespace quillmar::Markdown
