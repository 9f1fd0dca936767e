#pragma once

#include "Markdown/BracketPairs.h"
#include "Markdown/Link.h"
#include "Markdown/LinkDestinations.h"
#include "Markdown/LinkReferences.h"
#include "Markdown/NextOccurrence.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// Recognises links and images in one text: "[text](destination "title")", "[text][label]" and "[label]".
class LinkParser {
public:
    /// Both must outlive this object.
    LinkParser(LinkReferences& references, Backticks& backticks)
        : references_(references), brackets_(backticks) {}

    /// Another text begins; it must outlive the links in it.
    void reset(std::string_view text);

    /// The link whose "[" stands at \p open; none when the bracket is text. \p limit and \p outerWalk are those
    /// of the text that holds it: the whole, or a link's. Questions go from left to right.
    std::optional<Link> parseLink(std::size_t open, std::size_t limit, std::size_t outerWalk);

private:
    /// What the brackets hold, and the walk by which they were found.
    struct Text {
        std::string_view raw;
        std::size_t walk;
    };

    std::optional<Link> inlineLink(const Text& text, std::size_t parenthesis, std::size_t limit);
    std::optional<Link> fullReference(const Text& text, bool textMayBeLabel, std::size_t bracket,
                                      std::size_t limit);
    std::optional<Link> reference(const Text& text, std::string_view label, std::size_t end);

    LinkReferences& references_;
    BracketPairs brackets_;
    LinkDestinations destinations_;
    std::string_view text_;
    NextOccurrence closingBracket_{"]"};
};

} // namespace quillmar::Markdown
