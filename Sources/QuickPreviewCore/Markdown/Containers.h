#pragma once

#include "Markdown/Block.h"
#include "Markdown/Line.h"
#include "Markdown/ListMarker.h"
#include "Markdown/ThematicBreak.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace quillmar::Markdown {

/// The quotes and lists that are open, from the outermost to the innermost. Leads each line as deep as it
/// belongs: by the markers and the indentation that it has, or lazily, as text that goes on without them.
///
/// The cost of a line is that of its own bytes and of what it closes, however deep the nesting is: quotes in a
/// row are one entry, and a line of plain text passes all entries in one step.
class Containers {
public:
    /// Marks the lists in \p blocks that turn out to be loose; \p blocks must outlive this object. \p room is
    /// how many may be open before memory is moved.
    explicit Containers(std::vector<Block>& blocks, std::size_t room = 0) : blocks_(blocks) {
        entries_.reserve(room);
    }

    /// What a line does to the containers that were open before it.
    struct Arrival {
        std::size_t closed = 0;  ///< quotes and lists that it ends, the innermost ones
        bool beginsItem = false; ///< a further one of the list that is then the innermost
        bool endsBlock() const { return closed > 0 || beginsItem; }
    };

    /// Strips from \p line what its containers take. \p breaks is of the same line. The answer is good until
    /// the next line.
    const Arrival& enter(Line& line, ThematicBreaks& breaks);

    /// Opens a quote around \p rest, what follows on the same line.
    void openQuote(const Line& rest);
    /// Opens a list with its first item. \p block is the index of the list's block.
    void openList(const ListMarker& marker, std::size_t block);

    /// Marks the innermost container, a list, as one with tasks.
    void noteTask() { blocks_[entries_.back().number].holdsTasks = true; }

    /// Quotes and lists that are open.
    std::size_t count() const;
    bool isEmpty() const { return entries_.empty(); }
    /// True when the innermost container is a list.
    bool isInItem() const { return !entries_.empty() && entries_.back().isList; }

private:
    /// Kept small: there may be one for every other byte of a document.
    struct Entry {
        std::size_t number = 0; ///< quotes: how many, one in the other; lists: the index of the block
        bool isList = false;
        // Lists, of the item that is open:
        bool itemHasText = false; ///< a line of it was not blank
        bool isOrdered = false;
        char delimiter = '-';
        std::uint8_t indent = 0;
        std::uint8_t contentIndent = 0;

        void setItem(const ListMarker& marker);
        bool isContinuedBy(const ListMarker& marker) const {
            return isOrdered == marker.ordered && delimiter == marker.delimiter;
        }
    };

    // Each leads the line through the entry at `depth`; or says in `arrival_` what it ends there, and returns
    // false.
    bool enterQuotes(std::size_t& depth, Line& line, ThematicBreaks& breaks);
    bool enterList(std::size_t& depth, Line& line, ThematicBreaks& breaks);
    void enterBlank(std::size_t depth);

    void beginItem(std::size_t depth, const ListMarker& marker, Line& line);
    void refuse(std::size_t depth, std::size_t keptQuotes);
    void close(std::size_t depth, std::size_t keptQuotes);
    std::size_t firstThatSawBlank(std::size_t depth) const;
    void noteText();

    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    std::vector<Block>& blocks_;
    Arrival arrival_; ///< of the line that is entering
    std::vector<Entry> entries_;
    std::vector<std::size_t> quoteEntries_; ///< the indices of those entries that are quotes
    /// The last line was blank for the entries from this index on (all of them lists, for a quote would have
    /// ended), and was the blank end of a line for the innermost quote of the entry before.
    std::size_t blankFrom_ = none;
};

} // namespace quillmar::Markdown
