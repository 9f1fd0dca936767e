#pragma once

#include "Markdown/Block.h"
#include "Markdown/Containers.h"
#include "Markdown/OpenBlock.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::Markdown {

/// Divides the lines of a document into blocks: one pass, one line at a time.
class BlockParser {
public:
    /// \p buffer is the document, whose lines are moved together as they are read. The blocks are views into
    /// it.
    explicit BlockParser(std::string& buffer);
    BlockParser(const BlockParser&) = delete;
    BlockParser& operator=(const BlockParser&) = delete;

    /// \p line is a view into the buffer, behind all that were added before.
    void add(std::string_view line);

    /// The document's end: closes what is open.
    void finish();

    /// What has been read. Unless `isBetweenBlocks`, the last blocks may still change, and the lists around
    /// them.
    std::span<const Block> blocks() const { return blocks_; }
    bool isBetweenBlocks() const { return containers_.isEmpty() && !open_.isOpen(); }
    /// Forgets the blocks. Only between blocks.
    void clear() { blocks_.clear(); }

private:
    void begin(Line& line, ThematicBreaks& breaks);
    void beginLeaf(const Line& line);
    void takeTask(Line& line);
    Block& push(BlockKind kind);
    void pushClose(std::size_t count);
    void openQuote(const Line& rest);
    void openList(const ListMarker& marker);

    std::vector<Block> blocks_;
    Containers containers_;
    OpenBlock open_;
};

} // namespace quillmar::Markdown
