#include "Pages/TextPage.h"

#include "Pages/LanguageNames.h"
#include "Pages/PageTemplate.h"
#include "Platform/FileURL.h"
#include "Platform/IntegerFormat.h"
#include "Platform/Text.h"
#include "Support/HTML.h"

#include <algorithm>
#include <array>

namespace quillmar::TextPage {
namespace {

/// Extensions of prose, logs and records; a name without extension counts among them.
constexpr std::array<std::string_view, 7> wrappedExtensions{"txt", "log", "text", "out", "csv", "tsv", ""};

/// Around a line: its span and the line feed before it.
constexpr std::size_t lineMarkupBytes = 27;

/// The part of \p text that is drawn: its first `maxLines` lines, without the line feed of the last.
struct DrawnText {
    std::string_view text;
    std::size_t lines = 0;
    bool isWhole = true;
};

DrawnText drawnText(std::string_view text) {
    if (text.ends_with('\n')) text.remove_suffix(1);
    std::size_t lines = 1;
    for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1)) {
        if (lines == maxLines) return {text.substr(0, at), lines, false};
        ++lines;
    }
    return {text, lines, true};
}

void appendLine(std::string& html, std::string_view line) {
    html += "<span class=\"line\">";
    if (line.empty())
        html += ' '; // keeps the line's height
    else
        HTML::appendEscaped(html, line);
    html += "</span>";
}

void appendLines(std::string& html, std::string_view text) {
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
        appendLine(html, text.substr(0, end));
        html += '\n';
        text.remove_prefix(end + 1);
    }
    appendLine(html, text);
}

} // namespace

std::optional<std::string_view> language(std::string_view name) {
    const std::string lower = lowercased(name);
    if (const auto label = LanguageNames::ofSpecialName(lower)) return label;
    return LanguageNames::ofExtension(pathExtension(lower));
}

bool wraps(std::string_view name) {
    const std::string lower = lowercased(name);
    return std::ranges::find(wrappedExtensions, pathExtension(lower)) != wrappedExtensions.end();
}

std::int64_t lineCount(std::string_view text) {
    const auto isLone = [&](std::size_t lineFeed) { return lineFeed == 0 || text[lineFeed - 1] != '\r'; };
    std::int64_t count = 0;
    for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1))
        count += isLone(at) ? 1 : 0;
    const bool isLastLineOpen = !text.empty() && !(text.ends_with('\n') && isLone(text.size() - 1));
    return count + (isLastLineOpen ? 1 : 0);
}

std::string html(std::string_view text, std::string_view title, const std::optional<std::string>& icon,
                 const std::vector<std::string>& facts, bool wrap, const std::optional<std::string>& note) {
    const DrawnText drawn = drawnText(text);
    const std::size_t roomForReferences = drawn.text.size() / 8;
    std::string html = PageTemplate::documentStart(
        title, "text", drawn.text.size() + drawn.lines * lineMarkupBytes + roomForReferences);
    html += "<div class=\"page\">" + PageTemplate::header(icon, title, facts, {});
    if (note) html += PageTemplate::notice(*note);
    if (!drawn.isWhole)
        html += PageTemplate::notice("Showing the first " + formattedInteger(maxLines) + " lines.");
    html += "</div><div class=\"code-view mono";
    if (wrap) html += " wrap";
    html += "\">";
    appendLines(html, drawn.text);
    html += "</div>";
    return html.append(PageTemplate::documentEnd);
}

} // namespace quillmar::TextPage
