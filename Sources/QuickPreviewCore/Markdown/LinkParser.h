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

    /// The link whose "[" stands at \p open; null when the bracket is text. \p limit and \p outerWalk are those
    /// of the text that holds it: the whole, or a link's. Questions go from left to right; an answer is good
    /// until the next one.
    const Link* parseLink(std::size_t open, std::size_t limit, std::size_t outerWalk);

private:
    // These complete `link_`, whose text has been found.
    const Link* inlineLink(std::size_t parenthesis, std::size_t limit);
    const Link* fullReference(bool textMayBeLabel, std::size_t bracket, std::size_t limit);
    const Link* reference(std::string_view label, std::size_t end);

    LinkReferences& references_;
    BracketPairs brackets_;
    LinkDestinations destinations_;
    std::string_view text_;
    Link link_;
    NextOccurrence closingBracket_{"]"};
};

} // namespace quillmar::Markdown
