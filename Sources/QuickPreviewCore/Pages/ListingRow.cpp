#include "Pages/ListingRow.h"

#include "Platform/UTF8.h"
#include "Support/HTML.h"

namespace quillmar::ListingRow {
namespace {

/// Bytes in the first \p count code points of \p text.
std::size_t bytesOf(std::size_t count, std::string_view text) {
    if (text.size() <= count) return text.size();
    std::size_t bytes = 0;
    for (; count > 0 && bytes < text.size(); --count) bytes += UTF8::codePointAt(text, bytes).length;
    return bytes;
}

} // namespace

std::string iconTag(const std::optional<std::string>& source) {
    if (!source) return "<span class=\"spacer\"></span>";
    return "<img src=\"" + HTML::escape(*source) + "\" alt=\"\">";
}

void appendName(std::string& html, std::string_view name) {
    const std::size_t shown = bytesOf(maxNameLength, name);
    HTML::appendEscaped(html, name.substr(0, shown));
    if (shown < name.size()) html += "…";
}

void appendDate(std::string& html, const std::optional<Timestamp>& date) {
    if (!date) return;
    if (const auto text = formattedDate(*date)) HTML::appendEscaped(html, *text);
}

void appendOmitted(std::string& html, std::int64_t count) {
    if (count == 0) return;
    html += "<div class=\"row\"><span class=\"muted\">and ";
    HTML::appendEscaped(html, HTML::count(count, "more item"));
    html += "</span></div>";
}

} // namespace quillmar::ListingRow
