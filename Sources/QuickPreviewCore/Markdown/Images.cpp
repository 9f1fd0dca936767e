#include "Markdown/Images.h"

#include "Markdown/ImageSource.h"
#include "Support/HTML.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace quillmar::Markdown {
namespace {

bool isMarkup(char c) { return c == '*' || c == '_' || c == '`' || c == '[' || c == ']' || c == '~'; }

} // namespace

std::string plainText(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(plain), isMarkup);
    return plain;
}

void appendImage(std::string& html, const Link& link, const ImageResolver& resolveImage) {
    const std::string alternative = plainText(link.text);
    const std::optional<std::string> source = imageSource(link.url, resolveImage);
    if (!source) {
        html.append("<span class=\"missing-image\" title=\"");
        HTML::appendEscaped(html, link.url);
        html.append("\">");
        HTML::appendEscaped(html, alternative.empty() ? std::string_view("Image") : alternative);
        html.append("</span>");
        return;
    }
    html.append("<img src=\"");
    HTML::appendEscaped(html, *source);
    html.append("\" alt=\"");
    HTML::appendEscaped(html, alternative);
    if (link.title) {
        html.append("\" title=\"");
        HTML::appendEscaped(html, *link.title);
    }
    html.append("\">");
}

} // namespace quillmar::Markdown
