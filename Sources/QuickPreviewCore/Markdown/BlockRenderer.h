#pragma once

#include "Markdown/Block.h"
#include "Markdown/HeadingIdentifiers.h"
#include "Markdown/ImageResolver.h"
#include "Markdown/Inlines.h"
#include "Markdown/Tables.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::Markdown {

/// Writes the blocks of one document as HTML.
class BlockRenderer {
public:
    /// All must outlive this object. \p html is what is appended to, \p document what the blocks are parts of.
    BlockRenderer(std::string& html, const std::string& document, LinkReferences& references,
                  HeadingIdentifiers& identifiers, const ImageResolver& resolveImage);

    /// To be called with whole blocks: what \p blocks open they close.
    void append(std::span<const Block> blocks);

private:
    /// A container that is open: quotes in a row, or a list.
    struct Container {
        std::size_t number = 0; ///< quotes: how many; lists: where the open item's content begins in the HTML
        bool isList = false;
        bool isOrdered = false;
        bool isLoose = false;
    };

    void append(const Block& block);
    void appendHeading(const Block& block);
    void appendParagraph(std::string_view text);
    void appendFencedCode(std::string_view text);
    void openQuotes(std::size_t count);
    void openList(const Block& list);
    void appendListTag(const Block& list);
    void openItem(const Block& item);
    void closeItem(Container& list);
    void close(std::size_t count);
    bool isInTightItem() const;

    std::string_view text(const Block& block) const { return block.text(document_); }

    std::string& html_;
    const std::string& document_;
    HeadingIdentifiers& identifiers_;
    const ImageResolver& resolveImage_;
    Inlines inlines_;
    std::vector<Container> containers_;
    SharedByTables tables_;
};

} // namespace quillmar::Markdown
