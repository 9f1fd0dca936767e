#include "Markdown/HTMLSanitizer.h"

#include "Markdown/ImageSource.h"
#include "Markdown/SanitizerPatterns.h"
#include "Support/HTML.h"

#include <optional>
#include <utility>

namespace quillmar::Markdown {
namespace {

using namespace SanitizerPatterns;

Range rangeOf(const Range& match) { return match; }
Range rangeOf(const ScriptURL& match) { return match.range; }

/// \p text with \p first, a match of the scanner \p next, and every match behind it replaced by what \p append
/// writes for it.
template <typename Match, typename Next, typename Append>
std::string replacingMatches(std::string_view text, const Match& first, Next next, Append append) {
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    for (std::optional<Match> match = first; match; match = next(text, copied)) {
        const Range range = rangeOf(*match);
        result.append(text, copied, range.start - copied);
        append(result, *match);
        copied = range.end;
    }
    result.append(text, copied);
    return result;
}

/// Appends \p tag with a source that the page can load, or its alternative text in its place.
void appendImageTag(std::string& html, std::string_view tag, const ImageResolver& resolveImage) {
    const auto source = nextImageSource(tag, 0);
    if (!source) {
        html.append(tag);
        return;
    }
    if (const auto url = imageSource(source->value, resolveImage)) {
        html.append(tag, 0, source->range.start).append(source->name).append(source->quote);
        HTML::appendEscaped(html, *url);
        html.append(source->quote).append(tag, source->range.end);
        return;
    }
    const auto alt = nextImageAlt(tag, 0);
    if (!alt || alt->value.empty()) return;
    html.append("<span class=\"missing-image\">").append(alt->value).append("</span>");
}

} // namespace

void appendSanitizedHTML(std::string& output, std::string_view html, const ImageResolver& resolveImage) {
    if (isHarmlessTag(html)) {
        output.append(html);
        return;
    }
    std::string rewritten;
    std::string_view text = html;
    const auto pass = [&](auto next, auto append) {
        const auto first = next(text, 0);
        if (!first) return; // most of the time, so nothing is copied in vain
        rewritten = replacingMatches(text, *first, next, append);
        text = rewritten;
    };
    const auto appendNothing = [](std::string&, const Range&) {};
    pass(nextBlockedElement, appendNothing);
    pass(nextBlockedTag, appendNothing);
    if (text.find('=') != text.npos) {
        pass(nextEventAttribute, appendNothing);
        pass(nextScriptURL, [](std::string& result, const ScriptURL& url) {
            result.append(url.name).append("=").append(url.quote).append("#blocked:");
        });
    }
    pass(nextImageTag, [&](std::string& result, const Range& tag) {
        appendImageTag(result, text.substr(tag.start, tag.end - tag.start), resolveImage);
    });
    output.append(text);
}

std::string sanitizeHTML(std::string_view html, const ImageResolver& resolveImage) {
    std::string sanitized;
    appendSanitizedHTML(sanitized, html, resolveImage);
    return sanitized;
}

} // namespace quillmar::Markdown
