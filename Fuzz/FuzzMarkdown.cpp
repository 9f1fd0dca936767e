#include "Fuzz/FuzzTarget.h"
#include "Fuzz/Nesting.h"
#include "Markdown/MarkdownRenderer.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

namespace quillmar {
namespace {

/// Finds every second path. A URL of this kind would end an attribute if it were not escaped.
std::optional<std::string> image(const std::string& path) {
    require(UTF8::validPrefix(path) == path.size());
    if (path.size() % 2 == 0) return std::nullopt;
    return std::string("cid:\"").append(path).append("\"");
}

} // namespace

void fuzz(DataView input) {
    const std::string text = decodedText(std::string(input));
    const MarkdownRenderer renderer{image};
    const std::string html = renderer.render(text);
    require(UTF8::validPrefix(html) == html.size());
    require(renderer.render(text) == html);
    const bool hasRawHTML = text.find('<') != text.npos;
    require(hasRawHTML || isBalanced(html));
    MarkdownRenderer{}.render(std::string(input)); // what is no UTF-8 must not crash either
}

} // namespace quillmar
