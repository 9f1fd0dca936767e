#pragma once

#include <cstdint>
#include <string_view>

namespace quillmar::Markdown {

enum class BlockKind : std::uint8_t {
    paragraph,
    heading,
    fencedCode, ///< the first line of its text is the language, empty without one
    indentedCode,
    html,
    thematicBreak,
    table,  ///< header, delimiter row, body rows
    quotes, ///< opens `number` quotes, one in the other
    list,   ///< opens a list and its first item
    item,   ///< opens a further item of the innermost list, and ends the one before
    close,  ///< closes the `number` innermost quotes and lists
};

/// One step of a document, in its order. A document is a flat sequence of them, however deep it nests. Kept
/// small: there may be one for every other byte.
struct Block {
    std::uint32_t begin = 0; ///< of its text: lines joined by line feeds, in the document's buffer
    std::uint32_t size = 0;
    std::uint32_t number = 0; ///< see the kinds; of ordered lists the first item's
    BlockKind kind = BlockKind::paragraph;
    std::uint8_t level = 0;      ///< headings: 1 to 6
    bool isOrdered : 1 = false;  ///< lists
    bool isLoose : 1 = false;    ///< lists: their paragraphs are marked up as such
    bool holdsTasks : 1 = false; ///< lists: one item at least has one
    bool hasTask : 1 = false;    ///< the item that this opens
    bool isChecked : 1 = false;  ///< the task

    std::string_view text(std::string_view document) const { return document.substr(begin, size); }
    /// \p text is a part of \p document, which has fewer than 2^32 bytes (`MarkdownLimits::maxTextBytes`).
    void setText(std::string_view text, std::string_view document) {
        begin = static_cast<std::uint32_t>(text.data() - document.data());
        size = static_cast<std::uint32_t>(text.size());
    }
};

} // namespace quillmar::Markdown
