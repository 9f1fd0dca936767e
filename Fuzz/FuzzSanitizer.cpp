#include "Fuzz/FuzzTarget.h"
#include "Markdown/HTMLSanitizer.h"
#include "Markdown/SanitizerPatterns.h"
#include "Platform/UTF8.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {
namespace {

using namespace Markdown::SanitizerPatterns;

Range rangeOf(const Range& match) { return match; }
Range rangeOf(const ScriptURL& match) { return match.range; }
Range rangeOf(const QuotedAttribute& match) { return match.range; }

bool isValid(std::string_view text) { return UTF8::validPrefix(text) == text.size(); }

/// Matches stand in order, hold something, cut no character and are found again from where they start.
template <typename Next>
void checkMatches(std::string_view text, Next next) {
    std::size_t end = 0;
    while (const auto match = next(text, end)) {
        const Range range = rangeOf(*match);
        require(range.start >= end && range.end > range.start && range.end <= text.size());
        const std::string_view matched = text.substr(range.start, range.end - range.start);
        require(isValid(matched) || !isValid(text));
        const auto again = next(text, range.start);
        require(again && rangeOf(*again) == range);
        end = range.end;
    }
}

std::optional<std::string> resolveImage(const std::string& path) {
    return path.size() % 2 == 0 ? std::optional("cid:" + path) : std::nullopt;
}

} // namespace

void fuzz(DataView input) {
    checkMatches(input, nextBlockedElement);
    checkMatches(input, nextBlockedTag);
    checkMatches(input, nextEventAttribute);
    checkMatches(input, nextScriptURL);
    checkMatches(input, nextImageTag);
    checkMatches(input, nextImageSource);
    checkMatches(input, nextImageAlt);
    const std::string html = Markdown::sanitizeHTML(input, resolveImage);
    require(isValid(html) || !isValid(input));
    require(Markdown::sanitizeHTML(input, resolveImage) == html);
    Markdown::sanitizeHTML(input, nullptr);
}

} // namespace quillmar
