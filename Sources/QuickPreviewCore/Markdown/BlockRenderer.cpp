#include "Markdown/BlockRenderer.h"

#include "Markdown/HTMLSanitizer.h"
#include "Markdown/Lines.h"
#include "Support/HTML.h"

#include <algorithm>
#include <array>

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

struct HeadingTags {
    std::string_view opening; ///< up to the identifier
    std::string_view closing;
};

/// By the level, from 1 on.
constexpr std::array<HeadingTags, 6> headingTags{{{"<h1 id=\"", "</h1>\n"},
                                                  {"<h2 id=\"", "</h2>\n"},
                                                  {"<h3 id=\"", "</h3>\n"},
                                                  {"<h4 id=\"", "</h4>\n"},
                                                  {"<h5 id=\"", "</h5>\n"},
                                                  {"<h6 id=\"", "</h6>\n"}}};

} // namespace

BlockRenderer::BlockRenderer(std::string& html, const std::string& document, LinkReferences& references,
                             HeadingIdentifiers& identifiers, const ImageResolver& resolveImage)
    : html_(html), document_(document), identifiers_(identifiers), resolveImage_(resolveImage),
      inlines_(references, resolveImage) {}

void BlockRenderer::append(std::span<const Block> blocks) {
    for (const Block& block : blocks) append(block);
}

void BlockRenderer::append(const Block& block) {
    switch (block.kind) {
    case BlockKind::paragraph: return appendParagraph(text(block));
    case BlockKind::heading: return appendHeading(block);
    case BlockKind::fencedCode: return appendFencedCode(text(block));
    case BlockKind::indentedCode: return appendCodeBlock(html_, text(block), {});
    case BlockKind::html:
        appendSanitizedHTML(html_, text(block), resolveImage_);
        html_ += '\n';
        return;
    case BlockKind::thematicBreak: html_ += "<hr>\n"; return;
    case BlockKind::table: return appendTable(html_, text(block), inlines_, tables_);
    case BlockKind::quotes: return openQuotes(block.number);
    case BlockKind::list: openList(block); return openItem(block);
    case BlockKind::item: closeItem(containers_.back()); return openItem(block);
    case BlockKind::close: return close(block.number);
    }
}

void BlockRenderer::appendHeading(const Block& block) {
    const HeadingTags& tags = headingTags.at(block.level - 1U);
    html_ += tags.opening;
    identifiers_.appendSlug(html_, text(block));
    html_ += "\">";
    inlines_.append(html_, text(block));
    html_ += tags.closing;
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
    const bool hasAttributes = list.holdsTasks || (list.isOrdered && list.number != 1);
    if (hasAttributes)
        appendListTag(list);
    else
        html_ += list.isOrdered ? "<ol>\n" : "<ul>\n";
    containers_.push_back({.isList = true, .isOrdered = list.isOrdered, .isLoose = list.isLoose});
}

void BlockRenderer::appendListTag(const Block& list) {
    html_ += list.isOrdered ? "<ol" : "<ul";
    if (list.isOrdered && list.number != 1) {
        html_ += " start=\"";
        html_ += std::to_string(list.number);
        html_ += '"';
    }
    if (list.holdsTasks) html_ += " class=\"tasks\"";
    html_ += ">\n";
}

void BlockRenderer::openItem(const Block& item) {
    html_ += item.hasTask ? "<li class=\"task\">" : "<li>";
    if (item.hasTask)
        html_ += item.isChecked ? "<input type=\"checkbox\" disabled checked> "
                                : "<input type=\"checkbox\" disabled> ";
    containers_.back().number = html_.size();
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
