#include "Markdown/FrontMatter.h"

#include "Markdown/Lines.h"
#include "Support/HTML.h"

namespace quillmar::Markdown {
namespace {

constexpr std::string_view opening = "---\n";

/// The lines between the opening and the closing one, each with its line break.
struct Extent {
    std::string_view body;
    std::size_t length = 0; ///< of the whole block
};

std::optional<Extent> extent(std::string_view text) {
    if (!text.starts_with(opening)) return std::nullopt;
    const std::string_view rest = text.substr(opening.size());
    LineReader lines(rest);
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        const std::string_view closing = trimmed(line);
        if (closing != "---" && closing != "...") continue;
        const auto start = static_cast<std::size_t>(line.data() - rest.data());
        const std::size_t lineBreak = lines.atEnd() ? 0 : 1;
        return Extent{.body = rest.substr(0, start),
                      .length = opening.size() + start + line.size() + lineBreak};
    }
    return std::nullopt;
}

/// A key at the start of the line, a colon, a value.
bool isPair(std::string_view line) { return line.find(':') != line.npos && !line.starts_with(' '); }

bool holdsOnlyPairs(std::string_view body) {
    LineReader lines(body);
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        if (!isPair(line) && !isBlank(line)) return false;
    }
    return true;
}

std::string table(std::string_view body) {
    std::string html = "<table class=\"front-matter\">\n";
    std::string_view separator;
    LineReader lines(body);
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        const std::size_t colon = line.find(':');
        if (colon == line.npos) continue;
        html.append(separator).append("<tr><th>");
        HTML::appendEscaped(html, line.substr(0, colon));
        html.append("</th><td>");
        HTML::appendEscaped(html, trimmed(line.substr(colon + 1)));
        html.append("</td></tr>");
        separator = "\n";
    }
    return html.append("\n</table>\n");
}

std::string verbatim(std::string_view body) {
    std::string html = "<pre class=\"front-matter\"><code>";
    HTML::appendEscaped(html, body.substr(0, body.size() - 1));
    return html.append("</code></pre>\n");
}

} // namespace

std::optional<FrontMatter> frontMatter(std::string_view text) {
    const std::optional<Extent> block = extent(text);
    if (!block) return std::nullopt;
    return FrontMatter{.html = holdsOnlyPairs(block->body) ? table(block->body) : verbatim(block->body),
                       .length = block->length};
}

} // namespace quillmar::Markdown
