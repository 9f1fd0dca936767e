#include "Markdown/BlockRenderer.h"

#include "Markdown/HTMLSanitizer.h"
#include "Markdown/Lines.h"
#include "Markdown/Tables.h"
#include "Support/HTML.h"

#include <algorithm>

namespace quillmar::Markdown {
namespace {

/// \p language is empty for code without one.
void appendCodeBlock(std::string& html, std::string_view lines, std::string_view language) {
    html += "<pre><code";
    if (!language.empty()) {
        html += " class=\"language-";
        HTML::appendEscaped(html, language);
        html += '"';
    }
    html += '>';
    HTML::appendEscaped(html, lines);
    if (!lines.empty()) html += '\n';
    html += "</code></pre>\n";
}

/// Bytes of markup that the block brings with it, about: room is made once for the whole document.
std::size_t markupBytes(const Block& block) {
    constexpr std::size_t quoteBytes = 28; // "<blockquote>\n" and "</blockquote>\n"
    constexpr std::size_t otherBytes = 20;
    return block.kind == BlockKind::quotes ? quoteBytes * block.number : otherBytes;
}

} // namespace

BlockRenderer::BlockRenderer(std::string& html, const std::string& document, LinkReferences& references,
                             HeadingIdentifiers& identifiers, const ImageResolver& resolveImage)
    : html_(html), document_(document), identifiers_(identifiers), resolveImage_(resolveImage),
      inlines_(references, resolveImage) {}

/// Makes room once for all, more than a page is likely to need: memory that is not written costs nothing.
void BlockRenderer::reserve(std::span<const Block> blocks) {
    std::size_t bytes = html_.size();
    for (const Block& block : blocks) bytes += block.size + block.size / 8 + markupBytes(block);
    if (bytes > html_.capacity()) html_.reserve(std::max(bytes, 2 * html_.capacity()));
}

void BlockRenderer::append(std::span<const Block> blocks) {
    reserve(blocks);
    for (const Block& block : blocks) append(block);
}

void BlockRenderer::append(const Block& block) {
    switch (block.kind) {
    case BlockKind::paragraph: return appendParagraph(text(block));
    case BlockKind::heading: return appendHeading(block);
    case BlockKind::fencedCode: return appendFencedCode(text(block));
    case BlockKind::indentedCode: return appendCodeBlock(html_, text(block), {});
    case BlockKind::html:
        html_ += sanitizeHTML(text(block), resolveImage_);
        html_ += '\n';
        return;
    case BlockKind::thematicBreak: html_ += "<hr>\n"; return;
    case BlockKind::table: return appendTable(html_, text(block), inlines_, paddingCells_);
    case BlockKind::quotes: return openQuotes(block.number);
    case BlockKind::list: return openList(block);
    case BlockKind::item: return openItem(block);
    case BlockKind::close: return close(block.number);
    }
}

void BlockRenderer::appendHeading(const Block& block) {
    const char level = static_cast<char>('0' + block.level);
    html_ += "<h";
    html_ += level;
    html_ += " id=\"";
    html_ += identifiers_.slug(text(block));
    html_ += "\">";
    inlines_.append(html_, text(block));
    html_ += "</h";
    html_ += level;
    html_ += ">\n";
}

bool BlockRenderer::isInTightItem() const {
    return !containers_.empty() && containers_.back().isList && !containers_.back().isLoose;
}

void BlockRenderer::appendParagraph(std::string_view text) {
    const bool isTight = isInTightItem();
    if (!isTight) html_ += "<p>";
    inlines_.append(html_, trimmed(text));
    html_ += isTight ? "\n" : "</p>\n";
}

void BlockRenderer::appendFencedCode(std::string_view text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    appendCodeBlock(html_, text.substr(std::min(end + 1, text.size())), text.substr(0, end));
}

void BlockRenderer::openQuotes(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) html_ += "<blockquote>\n";
    containers_.push_back({.number = count});
}

void BlockRenderer::openList(const Block& list) {
    html_ += list.isOrdered ? "<ol" : "<ul";
    if (list.isOrdered && list.number != 1) {
        html_ += " start=\"";
        html_ += std::to_string(list.number);
        html_ += '"';
    }
    if (list.hasTask) html_ += " class=\"tasks\"";
    html_ += ">\n";
    containers_.push_back(
        {.isList = true, .isOrdered = list.isOrdered, .isLoose = list.isLoose, .hasItem = false});
}

void BlockRenderer::openItem(const Block& item) {
    Container& list = containers_.back();
    if (list.hasItem) closeItem(list);
    html_ += item.hasTask ? "<li class=\"task\">" : "<li>";
    if (item.hasTask)
        html_ += item.isChecked ? "<input type=\"checkbox\" disabled checked> "
                                : "<input type=\"checkbox\" disabled> ";
    list.hasItem = true;
    list.number = html_.size();
}

/// Takes the line feeds from both ends of the item.
void BlockRenderer::closeItem(Container& list) {
    while (html_.size() > list.number && html_.back() == '\n') html_.pop_back();
    const std::size_t content = html_.find_first_not_of('\n', list.number);
    const std::size_t lineFeeds = std::min(content, html_.size()) - list.number;
    if (lineFeeds > 0) html_.erase(list.number, lineFeeds);
    html_ += "</li>\n";
}

/// Ends the \p count innermost quotes and lists.
void BlockRenderer::close(std::size_t count) {
    while (count > 0) {
        Container& container = containers_.back();
        if (container.isList) {
            closeItem(container);
            html_ += container.isOrdered ? "</ol>\n" : "</ul>\n";
            containers_.pop_back();
            --count;
            continue;
        }
        const std::size_t quotes = std::min(count, container.number);
        for (std::size_t i = 0; i < quotes; ++i) html_ += "</blockquote>\n";
        container.number -= quotes;
        if (container.number == 0) containers_.pop_back();
        count -= quotes;
    }
}

} // namespace quillmar::Markdown
