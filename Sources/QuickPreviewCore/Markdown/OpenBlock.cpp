#include "Markdown/OpenBlock.h"

#include "Markdown/HTMLBlock.h"
#include "Markdown/Headings.h"
#include "Markdown/Interruption.h"
#include "Markdown/Lines.h"
#include "Markdown/Tables.h"

namespace quillmar::Markdown {

void OpenBlock::openParagraph(const Line& line) {
    state_ = State::paragraph;
    isFirstLine_ = true;
    lines_.start(line.text().substr(line.indentation()));
}

void OpenBlock::openFencedCode(const Line& line, const Fence& fence, bool isInItem) {
    state_ = State::fencedCode;
    fence_ = fence;
    isInItem_ = isInItem;
    const std::string_view endOfLine = line.text().substr(line.text().size());
    lines_.start(fence.language.empty() ? endOfLine : fence.language);
}

void OpenBlock::openIndentedCode(const Line& line, bool isInItem) {
    state_ = State::indentedCode;
    isInItem_ = isInItem;
    lines_.start(line.text().substr(Line::codeIndentation));
}

void OpenBlock::openHTML(const Line& line, bool isInItem) {
    state_ = beginsComment(line) ? State::comment : State::html;
    isInItem_ = isInItem;
    lines_.start(line.text());
    if (state_ == State::comment && closesComment(line.text())) close();
}

void OpenBlock::addHeading(int level, std::string_view text) {
    lines_.start(text);
    add(BlockKind::heading, level);
}

bool OpenBlock::take(const Line& line, ThematicBreaks& breaks) {
    if (line.isBlank()) return takeBlank(line);
    switch (state_) {
    case State::closed: return false;
    case State::paragraph: return takeInParagraph(line, breaks);
    case State::fencedCode:
    case State::indentedCode: return takeCode(line);
    case State::comment: takeInComment(line); return true;
    case State::html: lines_.append(line.text()); return true;
    case State::table: break;
    }
    const bool isRow = line.text().find('|') != std::string_view::npos && !interrupts(line, breaks);
    if (!isRow) return closeBefore();
    lines_.append(line.text());
    return true;
}

bool OpenBlock::takeBlank(const Line& line) {
    // What an item holds of a blank line is an empty one.
    const std::string_view text = isInItem_ ? std::string_view() : line.text();
    switch (state_) {
    case State::fencedCode: lines_.appendBlank(withoutIndentation(text, fence_.indent)); return true;
    case State::indentedCode: lines_.appendBlank(withoutIndentation(text, Line::codeIndentation)); return true;
    case State::comment: lines_.appendBlank(text); return true;
    default: return closeBefore();
    }
}

bool OpenBlock::takeInParagraph(const Line& line, ThematicBreaks& breaks) {
    if (isFirstLine_) {
        isFirstLine_ = false;
        if (beginsTable(lines_.text(), line.text())) {
            state_ = State::table;
            lines_.append(line.text());
            return true;
        }
    }
    if (const int level = setextLevel(line); level > 0) {
        add(BlockKind::heading, level);
        return true;
    }
    if (interrupts(line, breaks)) return closeBefore();
    lines_.append(line.text().substr(line.indentation()));
    return true;
}

void OpenBlock::takeInComment(const Line& line) {
    const bool isLast = closesComment(line.text()); // asked first: appending may move the line
    lines_.append(line.text());
    if (isLast) close();
}

bool OpenBlock::takeCode(const Line& line) {
    if (state_ == State::fencedCode) {
        if (fence_.isClosedBy(line.text())) {
            add(BlockKind::fencedCode);
        } else {
            lines_.append(withoutIndentation(line.text(), fence_.indent));
        }
        return true;
    }
    if (!line.isIndentedAsCode()) return closeBefore();
    lines_.append(line.text().substr(Line::codeIndentation));
    return true;
}

/// The line is no part of the block.
bool OpenBlock::closeBefore() {
    close();
    return false;
}

void OpenBlock::close() {
    switch (state_) {
    case State::closed: return;
    case State::paragraph: return add(BlockKind::paragraph);
    case State::table: return add(BlockKind::table);
    case State::indentedCode: lines_.dropBlankEnd(); return add(BlockKind::indentedCode);
    case State::fencedCode:
        if (isInItem_) lines_.dropBlankEnd();
        return add(BlockKind::fencedCode);
    case State::comment:
        if (isInItem_) lines_.dropBlankEnd();
        return add(BlockKind::html);
    case State::html: return add(BlockKind::html);
    }
}

void OpenBlock::add(BlockKind kind, int level) {
    Block block;
    block.kind = kind;
    block.level = static_cast<std::uint8_t>(level);
    block.setText(lines_.text(), lines_.document());
    blocks_.push_back(block);
    state_ = State::closed;
}

} // namespace quillmar::Markdown
