#include "Markdown/ImageSource.h"

#include "Support/PercentEncoding.h"

#include <algorithm>

namespace quillmar::Markdown {
namespace {

/// Without regard to case. No character outside ASCII is, lower-cased, a letter of the prefixes.
bool beginsWith(std::string_view text, std::string_view lowercasePrefix) {
    if (text.size() < lowercasePrefix.size()) return false;
    return std::equal(lowercasePrefix.begin(), lowercasePrefix.end(), text.begin(), [](char expected, char c) {
        return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' == expected : c == expected;
    });
}

} // namespace

std::optional<std::string> imageSource(std::string_view source, const ImageResolver& resolveImage) {
    for (const std::string_view prefix : {"https://", "http://", "data:image/"})
        if (beginsWith(source, prefix)) return std::string(source);
    if (source.find(':') != source.npos && !source.starts_with("./")) return std::nullopt;
    if (!resolveImage) return std::nullopt;
    return resolveImage(removingPercentEncoding(source).value_or(std::string(source)));
}

} // namespace quillmar::Markdown
