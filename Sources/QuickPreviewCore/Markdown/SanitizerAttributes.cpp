#include "Markdown/CaseFolding.h"
#include "Markdown/NearbyByte.h"
#include "Markdown/SanitizerPatterns.h"
#include "Markdown/TextBoundaries.h"

#include <algorithm>
#include <array>

/// Attributes are found by their "=", which is rarer than the letters and spaces that they begin with: what
/// stands in front of it is read backwards. The text between two "=" is so read a fixed number of times.
namespace quillmar::Markdown::SanitizerPatterns {
namespace {

using namespace std::string_view_literals;

// A name stands in front of those that it ends with: a match begins as far left as it can.
constexpr std::array urlAttributeNames{"xlink:href"sv, "href"sv, "src"sv, "formaction"sv, "action"sv};

/// True for the last letters of those names. No character outside ASCII folds to one of them alone.
constexpr bool endsURLAttributeName(char c) {
    return c == 'f' || c == 'c' || c == 'n' || c == 'F' || c == 'C' || c == 'N';
}

constexpr std::array scriptSchemes{"javascript:"sv, "vbscript:"sv, "data:text:"sv};

/// False for most bytes that stand in front of an "=" without ending a name and white space behind it.
bool mayEndName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == ' ' || (c >= '\t' && c <= '\r') ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// The next "=" at \p position or behind it that has a name in front of it, for all its last byte tells; the
/// name begins at \p first or behind it.
std::size_t findEquals(std::string_view text, std::size_t first, std::size_t position) {
    while (true) {
        const std::size_t equals = findNearby(text, '=', position);
        if (equals == text.npos || (equals > first && mayEndName(text[equals - 1]))) return equals;
        position = equals + 1;
    }
}

bool isQuote(char c) { return c == '"' || c == '\''; }

/// The quote at \p position, empty when there is none.
std::string_view quoteAt(std::string_view text, std::size_t position) {
    if (position >= text.size() || !isQuote(text[position])) return {};
    return text.substr(position, 1);
}

/// Reads bytes, for the bytes inside a character are no white space.
std::size_t endOfUnquotedValue(std::string_view text, std::size_t position) {
    while (position < text.size() && text[position] != '>' && whiteSpaceLengthAt(text, position) == 0)
        ++position;
    return position;
}

/// Where the value that begins at \p position ends; none when there is no value.
std::optional<std::size_t> endOfValue(std::string_view text, std::size_t position) {
    const std::string_view quote = quoteAt(text, position);
    if (!quote.empty()) {
        const std::size_t closing = text.find(quote, position + 1);
        if (closing != text.npos) return closing + 1;
    }
    const std::size_t end = endOfUnquotedValue(text, position);
    return end == position ? std::nullopt : std::optional(end);
}

/// Where the event handler whose "=" is at \p equals starts with its white space, not in front of \p first.
std::optional<std::size_t> startOfEventName(std::string_view text, std::size_t first, std::size_t equals) {
    std::size_t name = startOfWhiteSpace(text, first, equals);
    std::size_t letters = 0;
    while (name > first) {
        const std::size_t length = CaseFolding::letterLengthBefore(text, name);
        if (length == 0) break;
        name -= length;
        ++letters;
    }
    constexpr std::string_view prefix = "on";
    if (letters <= prefix.size() || CaseFolding::endOfMatch(text, name, prefix) == CaseFolding::none)
        return std::nullopt;
    const std::size_t start = startOfWhiteSpace(text, first, name);
    return start == name ? std::nullopt : std::optional(start);
}

/// Where the name of a URL attribute that ends at \p end starts, not in front of \p first; else `none`.
std::size_t startOfURLAttributeName(std::string_view text, std::size_t first, std::size_t end) {
    if (end == first || !endsURLAttributeName(text[end - 1])) return CaseFolding::none;
    for (const std::string_view name : urlAttributeNames) {
        const std::size_t start = CaseFolding::startOfMatch(text, end, name);
        if (start != CaseFolding::none && start >= first) return start;
    }
    return CaseFolding::none;
}

/// Where the scheme that begins at \p position ends, with its colon; else `none`.
std::size_t endOfScriptScheme(std::string_view text, std::size_t position) {
    for (const std::string_view scheme : scriptSchemes) {
        const std::size_t end = CaseFolding::endOfMatch(text, position, scheme);
        if (end != CaseFolding::none) return end;
    }
    return CaseFolding::none;
}

std::optional<QuotedAttribute> nextQuotedAttribute(std::string_view text, std::size_t position,
                                                   std::string_view name) {
    for (std::size_t equals = findEquals(text, position, position); equals != text.npos;
         equals = findEquals(text, position, equals + 1)) {
        const std::size_t nameEnd = startOfWhiteSpace(text, position, equals);
        const std::size_t start = CaseFolding::startOfMatch(text, nameEnd, name);
        if (start == CaseFolding::none || start < position || !isWordStart(text, start)) continue;
        const std::size_t opening = endOfWhiteSpace(text, equals + 1);
        const std::string_view quote = quoteAt(text, opening);
        if (quote.empty()) continue;
        const std::size_t value = opening + 1;
        const auto* const closing = std::find_if(text.begin() + value, text.end(), isQuote);
        if (closing == text.end()) return std::nullopt; // nor is any attribute behind this one closed
        if (*closing != quote.front()) continue;
        const auto valueEnd = static_cast<std::size_t>(closing - text.begin());
        return QuotedAttribute{.range = {.start = start, .end = valueEnd + 1},
                               .name = text.substr(start, opening - start),
                               .quote = quote,
                               .value = text.substr(value, valueEnd - value)};
    }
    return std::nullopt;
}

} // namespace

std::optional<Range> nextEventAttribute(std::string_view text, std::size_t position) {
    for (std::size_t equals = findEquals(text, position, position); equals != text.npos;
         equals = findEquals(text, position, equals + 1)) {
        const auto start = startOfEventName(text, position, equals);
        if (!start) continue;
        if (const auto end = endOfValue(text, endOfWhiteSpace(text, equals + 1)))
            return Range{.start = *start, .end = *end};
    }
    return std::nullopt;
}

std::optional<ScriptURL> nextScriptURL(std::string_view text, std::size_t position) {
    for (std::size_t equals = findEquals(text, position, position); equals != text.npos;
         equals = findEquals(text, position, equals + 1)) {
        const std::size_t nameEnd = startOfWhiteSpace(text, position, equals);
        const std::size_t start = startOfURLAttributeName(text, position, nameEnd);
        if (start == CaseFolding::none) continue;
        const std::size_t value = endOfWhiteSpace(text, equals + 1);
        const std::string_view quote = quoteAt(text, value);
        const std::size_t end = endOfScriptScheme(text, endOfWhiteSpace(text, value + quote.size()));
        if (end == CaseFolding::none) continue;
        return ScriptURL{
            .range = {.start = start, .end = end}, .name = text.substr(start, nameEnd - start), .quote = quote};
    }
    return std::nullopt;
}

std::optional<QuotedAttribute> nextImageSource(std::string_view text, std::size_t position) {
    return nextQuotedAttribute(text, position, "src");
}

std::optional<QuotedAttribute> nextImageAlt(std::string_view text, std::size_t position) {
    return nextQuotedAttribute(text, position, "alt");
}

} // namespace quillmar::Markdown::SanitizerPatterns
