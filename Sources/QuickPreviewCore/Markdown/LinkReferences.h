#pragma once

#include "Markdown/Fence.h"
#include "Markdown/TextIndex.h"

#include <cstddef>
#include <deque>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// The link reference definitions of one document ("[label]: destination "title"").
class LinkReferences {
public:
    /// Views into what these references keep.
    struct Definition {
        std::string_view url;
        std::optional<std::string_view> title;
        bool operator==(const Definition&) const = default;
    };

    /// Collects the definitions among the lines of \p text; returns the positions at which those lines begin.
    std::vector<std::size_t> collectReferences(std::string_view text);

    /// To be called with every line of the document in order, for lines inside fences are no definitions.
    /// True when \p line is a definition, and so no part of the text. The first one of a label counts.
    bool collect(std::string_view line);

    /// The definition of \p label as it stands in the text; none when there is none, or when all that was
    /// found before leaves no room for it (`MarkdownLimits::maxResolvedReferenceBytes`). A label that holds a
    /// "]" is never defined. The definition stays where it is while this lives.
    const Definition* resolve(std::string_view label);

private:
    std::string_view kept(std::string_view text);

    TextIndex labels_; ///< normalised
    std::pmr::monotonic_buffer_resource memory_;
    std::deque<Definition> definitions_; ///< by the number of the label
    std::optional<Markdown::Fence> openFence_;
    std::size_t resolvedBytes_ = 0;
};

namespace Markdown {

/// Lower-cased, runs of white space one space, in the form in which equal labels are the same bytes.
std::string normalizeLabel(std::string_view label);

} // namespace Markdown
} // namespace quillmar
