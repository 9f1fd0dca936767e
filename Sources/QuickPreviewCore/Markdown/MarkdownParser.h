#pragma once

#include "Markdown/HeadingIdentifiers.h"
#include "Markdown/ImageResolver.h"
#include "Markdown/LinkReferences.h"

#include <string>

namespace quillmar {

/// The rendering of one document: the order of the passes, and what they share. One thread, one document.
///
/// The text stays in one buffer. Lines are views into it; the lines of a block are moved together in place
/// when markers stood between them, which is safe because a line is read once, from front to back.
class MarkdownParser {
public:
    explicit MarkdownParser(ImageResolver resolveImage) : resolveImage_(std::move(resolveImage)) {}

    /// The HTML of \p markdown.
    std::string document(std::string markdown);

    /// The same, appended to \p html, so that a page is written in one piece.
    void appendDocument(std::string& html, std::string markdown);

private:
    ImageResolver resolveImage_;
    LinkReferences references_;
    HeadingIdentifiers identifiers_;
};

} // namespace quillmar
