#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// What the sanitizer looks for, each thing given by a regular expression and found by a scanner of our own: an
/// engine that backtracks needs time or stack that the text can name. The expressions ignore case (see
/// `CaseFolding`) and have ICU's meaning: \s is the White_Space property, \b looks through characters that
/// extend others, $ also stands in front of a line break that ends the text.
///
/// Each `next` function returns the leftmost match that begins at \p position of \p text or behind it. A search
/// that fails costs one reading of the rest, one that succeeds no more than the text up to the match's end and
/// what a search for a quote may read in vain, once in a text. No match is empty.
namespace quillmar::Markdown::SanitizerPatterns {

/// True for text with one "<" at most, no "=" and no name that the tags of the expressions below have: none of
/// them matches, but for an image without a source. Tags in a paragraph are mostly such.
bool isHarmlessTag(std::string_view text);

/// Bytes of a text, from \p start up to \p end.
struct Range {
    std::size_t start = 0;
    std::size_t end = 0;
    bool operator==(const Range&) const = default;
};

/// An element with its whole content, up to its own closing tag or to the end of the text:
/// <(script|style|iframe|frame|frameset|object|embed|applet|form|textarea|select|button)\b[\s\S]*?(?:</\1\s*>|$)
std::optional<Range> nextBlockedElement(std::string_view text, std::size_t position);

/// An opening or closing tag:
/// </?(?:script|style|iframe|frame|object|embed|applet|form|input|link|meta|base)\b[^>]*>
std::optional<Range> nextBlockedTag(std::string_view text, std::size_t position);

/// An event handler and the white space in front of it: \s+on[a-z]+\s*=\s*(?:"[^"]*"|'[^']*'|[^\s>]+)
std::optional<Range> nextEventAttribute(std::string_view text, std::size_t position);

/// An attribute up to the colon of a scheme that runs scripts.
struct ScriptURL {
    Range range;
    std::string_view name;  ///< as written; a view into the text
    std::string_view quote; ///< the opening one, empty without one
};

/// (href|src|action|formaction|xlink:href)\s*=\s*(["']?)\s*(?:javascript|vbscript|data:text):
std::optional<ScriptURL> nextScriptURL(std::string_view text, std::size_t position);

/// <img\b[^>]*>
std::optional<Range> nextImageTag(std::string_view text, std::size_t position);

/// An attribute in quotes. The views are into the text.
struct QuotedAttribute {
    Range range;
    std::string_view name;  ///< with the "=" and the white space up to the quote
    std::string_view quote; ///< the opening one; the closing one is the same
    std::string_view value; ///< without any quote
};

/// (\bsrc\s*=\s*)(["'])([^"']*)\2
std::optional<QuotedAttribute> nextImageSource(std::string_view text, std::size_t position);

/// \balt\s*=\s*(["'])([^"']*)\1
std::optional<QuotedAttribute> nextImageAlt(std::string_view text, std::size_t position);

} // namespace quillmar::Markdown::SanitizerPatterns
