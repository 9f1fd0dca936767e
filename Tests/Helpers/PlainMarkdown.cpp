#include "Tests/Helpers/PlainMarkdown.h"

#include "Platform/Text.h"
#include "Platform/UTF8.h"
#include "Support/HTML.h"
#include "Tests/Helpers/RegularExpression.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace quillmar::PlainMarkdown {
namespace {

bool hasCategory(char32_t character, std::uint32_t categories) {
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & categories) != 0;
}

Lines split(const std::string& text, char separator) {
    Lines pieces(1);
    for (const char byte : text)
        if (byte == separator)
            pieces.emplace_back();
        else
            pieces.back() += byte;
    return pieces;
}

std::string withLineFeeds(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r')
            result += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            result += '\n';
    return result;
}

std::vector<std::string> words(const std::string& text) {
    std::vector<std::string> found;
    bool inWord = false;
    for (const char32_t character : characters(text)) {
        if (isWhiteSpace(character)) {
            inWord = false;
            continue;
        }
        if (!inWord) found.emplace_back();
        inWord = true;
        found.back() += utf8({character});
    }
    return found;
}

} // namespace

std::string render(const std::string& markdown, const ImageResolver& resolveImage) {
    return Parser(resolveImage).document(repairedText(markdown));
}

std::string sanitizeHTML(const std::string& html, const ImageResolver& resolveImage) {
    return Parser(resolveImage).sanitizeHTML(repairedText(html));
}

Characters characters(std::string_view text) {
    Characters result;
    for (std::size_t at = 0; at < text.size();) {
        const UTF8::CodePoint next = UTF8::codePointAt(text, at);
        result += next.value;
        at += next.length;
    }
    return result;
}

std::string utf8(const Characters& characters) {
    std::string result;
    for (const char32_t character : characters) {
        std::array<char, U8_MAX_LENGTH> bytes{};
        std::size_t length = 0;
        U8_APPEND_UNSAFE(bytes, length, character);
        result.append(bytes.data(), length);
    }
    return result;
}

bool isWhiteSpace(char32_t character) {
    return u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_WHITE_SPACE) != 0;
}
bool isTrimmed(char32_t character) { return character == U'\t' || hasCategory(character, U_GC_ZS_MASK); }
bool isPunctuationOrSymbol(char32_t character) { return hasCategory(character, U_GC_P_MASK | U_GC_S_MASK); }
bool isLetter(char32_t character) { return hasCategory(character, U_GC_L_MASK); }
bool isDigit(char32_t character) { return hasCategory(character, U_GC_ND_MASK); }
bool isAlphanumeric(char32_t character) {
    return hasCategory(character, U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK);
}

bool isBlank(const std::string& line) { return line.find_first_not_of(" \t") == std::string::npos; }

std::size_t indentation(const std::string& line) { return std::min(line.find_first_not_of(' '), line.size()); }

std::string trimmed(const std::string& text) {
    Characters rest = characters(text);
    while (!rest.empty() && isTrimmed(rest.back())) rest.pop_back();
    while (!rest.empty() && isTrimmed(rest.front())) rest.erase(0, 1);
    return utf8(rest);
}

std::string withoutIndentation(const std::string& line, std::size_t atMost) {
    return line.substr(std::min(indentation(line), atMost));
}

std::string expandLeadingTabs(const std::string& line) {
    const bool startsWithTab = line.starts_with('\t');
    const bool startsWithSpace = line.starts_with(' ') && line.find('\t') != std::string::npos;
    if (!startsWithTab && !startsWithSpace) return line;
    std::string result;
    std::size_t i = 0;
    for (; i < line.size() && (line[i] == ' ' || line[i] == '\t'); ++i)
        result.append(line[i] == ' ' ? 1 : 4 - (result.size() % 4), ' ');
    return result + line.substr(i);
}

std::string joined(const Lines& lines) {
    std::string result;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) result += '\n';
        result += lines[i];
    }
    return result;
}

bool consistsOf(const std::string& text, char character) {
    return text.find_first_not_of(character) == std::string::npos;
}

std::string Parser::document(const std::string& markdown) {
    Lines lines = split(withLineFeeds(markdown), '\n');
    for (std::string& line : lines) line = expandLeadingTabs(line);
    std::string html = frontMatter(lines).value_or("");
    return html += blocks(collectReferences(lines), false);
}

std::optional<std::string> frontMatter(Lines& lines) {
    if (lines.size() < 2 || lines.front() != "---") return std::nullopt;
    std::size_t closing = 1;
    while (closing < lines.size() && trimmed(lines[closing]) != "---" && trimmed(lines[closing]) != "...")
        ++closing;
    if (closing == lines.size()) return std::nullopt;

    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(closing);
    const Lines body(lines.begin() + 1, end);
    lines.erase(lines.begin(), end + 1);

    std::size_t notBlank = 0;
    Lines rows;
    for (const std::string& line : body) {
        if (!isBlank(line)) ++notBlank;
        const std::size_t colon = line.find(':');
        if (indentation(line) > 0 || colon == std::string::npos) continue;
        rows.push_back("<tr><th>");
        rows.back() += HTML::escape(line.substr(0, colon));
        rows.back() += "</th><td>";
        rows.back() += HTML::escape(trimmed(line.substr(colon + 1)));
        rows.back() += "</td></tr>";
    }
    if (rows.size() != notBlank) {
        std::string html = "<pre class=\"front-matter\"><code>";
        html += HTML::escape(joined(body));
        return html += "</code></pre>\n";
    }
    std::string html = "<table class=\"front-matter\">\n";
    html += joined(rows);
    return html += "\n</table>\n";
}

Lines Parser::collectReferences(const Lines& lines) {
    static const RegularExpression referencePattern(
        R"re(^ {0,3}\[([^\]]+)\]:\s*(\S+)(?:\s+["'(](.*)["')])?\s*$)re");
    Lines kept;
    std::optional<Fence> openFence;
    for (const std::string& line : lines) {
        kept.push_back(line);
        if (openFence) {
            if (openFence->isClosedBy(line)) openFence.reset();
            continue;
        }
        openFence = Fence::parse(line);
        if (openFence) continue;

        const auto match = referencePattern.firstMatch(line);
        if (!match || match->end != line.size()) continue;
        std::string url = match->text(2);
        if (url.starts_with('<') && url.ends_with('>')) url = url.substr(1, url.size() - 2);
        const std::string key = normalizeLabel(match->text(1));
        if (key.starts_with('^')) continue;
        references_.try_emplace(key, Definition{url, match->groups[3]});
        kept.pop_back();
    }
    return kept;
}

/// In the form in which canonically equivalent labels are the same bytes.
std::string normalizeLabel(const std::string& label) {
    std::string key;
    for (const std::string& word : words(lowercased(label))) {
        if (!key.empty()) key += ' ';
        key += word;
    }
    return canonicalForm(std::move(key));
}

std::string Parser::slug(const std::string& heading) {
    Characters base;
    for (const char32_t character : characters(lowercased(heading)))
        if (character == U' ')
            base += U'-';
        else if (character == U'-' || character == U'_' || isAlphanumeric(character))
            base += character;
    std::string identifier = utf8(base);
    const std::size_t n = slugs_[canonicalForm(identifier)]++;
    if (n > 0) identifier.append("-").append(std::to_string(n));
    return identifier;
}

std::string safeURL(const std::string& url) {
    static const std::vector<std::string> schemes = {"http", "https", "mailto",
                                                     "ftp",  "tel",   "x-apple.systempreferences"};
    const std::string destination = trimmed(url);
    const std::size_t colon = destination.find(':');
    if (colon != std::string::npos) {
        const std::string before = destination.substr(0, colon);
        const bool isScheme = before.find_first_of("/#?") == std::string::npos;
        if (isScheme && std::ranges::find(schemes, lowercased(before)) == schemes.end()) return "#";
    }
    std::string safe;
    for (const char byte : destination)
        if (byte == ' ')
            safe += "%20";
        else
            safe += byte;
    return safe;
}

std::string plainText(const std::string& text) {
    std::string plain;
    for (const char byte : text)
        if (std::string_view("*_`[]~").find(byte) == std::string_view::npos) plain += byte;
    return plain;
}

} // namespace quillmar::PlainMarkdown
