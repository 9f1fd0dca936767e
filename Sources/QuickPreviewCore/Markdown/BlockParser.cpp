#include "Markdown/BlockParser.h"

#include "Markdown/BlockQuote.h"
#include "Markdown/HTMLBlock.h"
#include "Markdown/Headings.h"
#include "Markdown/Interruption.h"
#include "Markdown/MarkdownLimits.h"
#include "Markdown/TaskItem.h"

#include <algorithm>

namespace quillmar::Markdown {

BlockParser::BlockParser(std::string& buffer)
    : containers_(blocks_, std::min(buffer.size() / 2, MarkdownLimits::nestingAhead)), open_(buffer, blocks_) {
    blocks_.reserve(std::min(buffer.size() + 1, MarkdownLimits::blocksAhead));
}

void BlockParser::add(std::string_view line) {
    Line rest(line);
    ThematicBreaks breaks(line);
    const Containers::Arrival& arrival = containers_.enter(rest, breaks);
    if (arrival.endsBlock()) open_.close();
    pushClose(arrival.closed);
    if (arrival.beginsItem) {
        push(BlockKind::item);
        takeTask(rest);
    }
    if (open_.isOpen() && open_.take(rest, breaks)) return;
    begin(rest, breaks);
}

/// What \p line begins; inside a quote or an item the same again with the rest.
void BlockParser::begin(Line& line, ThematicBreaks& breaks) {
    while (!line.isBlank()) {
        if (line.isIndentedAsCode()) return open_.openIndentedCode(line, containers_.isInItem());
        if (!mayBeginBlock(line)) return open_.openParagraph(line);
        switch (line.first()) {
        case '>':
            line = stripQuote(line);
            openQuote(line);
            continue;
        case '#':
        case '`':
        case '~':
        case '<': return beginLeaf(line);
        default: break;
        }
        if (breaks.isThematicBreak(line)) {
            push(BlockKind::thematicBreak);
            return;
        }
        const auto marker = ListMarker::parse(line);
        if (!marker) return beginLeaf(line);
        openList(*marker);
        line = Line(marker->content);
        takeTask(line);
    }
}

/// What holds no blocks of its own.
void BlockParser::beginLeaf(const Line& line) {
    switch (line.first()) {
    case '`':
    case '~':
        if (const auto fence = Fence::parse(line.text()))
            return open_.openFencedCode(line, *fence, containers_.isInItem());
        break;
    case '#':
        if (const auto heading = ATXHeading::parse(line))
            return open_.addHeading(heading->level, heading->text);
        break;
    case '<':
        if (isHTMLBlock(line)) return open_.openHTML(line, containers_.isInItem());
        break;
    default: break;
    }
    open_.openParagraph(line);
}

void BlockParser::openQuote(const Line& rest) {
    containers_.openQuote(rest);
    if (blocks_.empty() || blocks_.back().kind != BlockKind::quotes) push(BlockKind::quotes);
    ++blocks_.back().number;
}

void BlockParser::openList(const ListMarker& marker) {
    containers_.openList(marker, blocks_.size());
    Block& list = push(BlockKind::list);
    list.isOrdered = marker.ordered;
    list.number = marker.start;
}

/// Takes the checkbox from \p line, with which the item of the last block begins.
void BlockParser::takeTask(Line& line) {
    const auto task = TaskItem::parse(line.text());
    if (!task) return;
    blocks_.back().hasTask = true;
    blocks_.back().isChecked = task->checked;
    containers_.noteTask();
    line = Line(task->text);
}

Block& BlockParser::push(BlockKind kind) {
    Block& block = blocks_.emplace_back();
    block.kind = kind;
    return block;
}

void BlockParser::pushClose(std::size_t count) {
    if (count == 0) return;
    if (blocks_.empty() || blocks_.back().kind != BlockKind::close) push(BlockKind::close);
    blocks_.back().number += static_cast<std::uint32_t>(count);
}

void BlockParser::finish() {
    open_.close();
    pushClose(containers_.count());
}

} // namespace quillmar::Markdown
