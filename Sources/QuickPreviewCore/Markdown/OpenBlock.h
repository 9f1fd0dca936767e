#pragma once

#include "Markdown/Block.h"
#include "Markdown/Fence.h"
#include "Markdown/JoinedLines.h"
#include "Markdown/Line.h"
#include "Markdown/ThematicBreak.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmar::Markdown {

/// The paragraph, code, raw HTML or table that is open, if one is: it takes the lines that arrive, says where
/// it ends, and is then added to the blocks.
class OpenBlock {
public:
    /// \p buffer is the document. Both must outlive this object.
    OpenBlock(std::string& buffer, std::vector<Block>& blocks) : lines_(buffer), blocks_(blocks) {}

    void openParagraph(const Line& line);
    void openFencedCode(const Line& line, const Fence& fence, bool isInItem);
    void openIndentedCode(const Line& line, bool isInItem);
    void openHTML(const Line& line, bool isInItem);

    /// Adds a heading on one line, which is not open at any time.
    void addHeading(int level, std::string_view text);

    bool isOpen() const { return state_ != State::closed; }

    /// True when \p line is part of the block. When it is not, the block is closed. \p breaks is of that line.
    bool take(const Line& line, ThematicBreaks& breaks);

    /// Ends the block, if one is open: what holds it has ended.
    void close();

private:
    enum class State { closed, paragraph, fencedCode, indentedCode, comment, html, table };

    bool takeBlank(const Line& line);
    bool takeInParagraph(const Line& line, ThematicBreaks& breaks);
    void takeInComment(const Line& line);
    bool takeCode(const Line& line);
    bool closeBefore();
    void add(BlockKind kind, int level = 0);

    JoinedLines lines_;
    std::vector<Block>& blocks_;
    State state_ = State::closed;
    bool isFirstLine_ = false; ///< paragraphs: there is one line yet
    bool isInItem_ = false;    ///< blank lines at the end of an item are no part of it
    Fence fence_;
};

} // namespace quillmar::Markdown
