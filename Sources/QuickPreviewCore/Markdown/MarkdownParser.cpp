#include "Markdown/MarkdownParser.h"

#include "Markdown/BlockParser.h"
#include "Markdown/BlockRenderer.h"
#include "Markdown/FrontMatter.h"
#include "Markdown/Lines.h"
#include "Markdown/MarkdownLimits.h"

#include <algorithm>

namespace quillmar {

std::string MarkdownParser::document(std::string markdown) {
    std::string html;
    appendDocument(html, std::move(markdown));
    return html;
}

void MarkdownParser::appendDocument(std::string& html, std::string markdown) {
    std::string text = Markdown::normalizedLines(std::move(markdown));
    if (text.size() > MarkdownLimits::maxTextBytes) text.resize(MarkdownLimits::maxTextBytes);
    html.reserve(html.size() + std::min(text.size() * MarkdownLimits::likelyGrowth, MarkdownLimits::roomAhead));
    std::size_t start = 0;
    if (const auto frontMatter = Markdown::frontMatter(text)) {
        html += frontMatter->html;
        start = frontMatter->length;
    }

    const std::string_view lines = std::string_view(text).substr(start);
    const std::vector<std::size_t> definitions = references_.collectReferences(lines);
    // What is read is written at once, while it is at hand: text that is moved in the buffer has been read.
    Markdown::BlockParser parser(text);
    Markdown::BlockRenderer renderer(html, text, references_, identifiers_, resolveImage_);
    auto definition = definitions.begin();
    for (Markdown::LineReader reader(lines); !reader.atEnd();) {
        const std::string_view line = reader.next();
        const auto offset = static_cast<std::size_t>(line.data() - lines.data());
        if (definition != definitions.end() && *definition == offset) {
            ++definition;
            continue;
        }
        parser.add(line);
        if (parser.isBetweenBlocks()) {
            renderer.append(parser.blocks());
            parser.clear();
        }
    }
    parser.finish();
    renderer.append(parser.blocks());
}

} // namespace quillmar
