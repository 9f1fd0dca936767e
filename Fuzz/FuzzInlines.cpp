#include "Fuzz/FuzzTarget.h"
#include "Fuzz/Nesting.h"
#include "Markdown/Inlines.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <string_view>

namespace quillmar {
namespace {

std::optional<std::string> image(const std::string& path) {
    if (path.size() % 2 == 0) return std::nullopt;
    return std::string("cid:\"<").append(path);
}

/// Definitions in \p text count, and are text as well. Twice, for the second text meets the memory of the
/// first.
void append(std::string& first, std::string& second, std::string_view text) {
    LinkReferences references;
    references.collectReferences(text);
    const ImageResolver resolveImage = image;
    Markdown::Inlines inlines(references, resolveImage);
    inlines.append(first, text);
    inlines.append(second, text);
}

} // namespace

void fuzz(DataView input) {
    const std::string text = decodedText(std::string(input));
    constexpr std::string_view before = "what stood there";
    std::string html(before);
    std::string again;
    append(html, again, text);
    require(html.starts_with(before));
    html.erase(0, before.size());
    require(again == html);
    require(UTF8::validPrefix(html) == html.size());
    const bool hasRawHTML = text.find('<') != text.npos;
    require(hasRawHTML || isBalanced(html));
    append(html, again, input); // what is no UTF-8 must not crash either
}

} // namespace quillmar
