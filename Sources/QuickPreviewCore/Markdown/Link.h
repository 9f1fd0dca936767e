#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// A link or an image as it stands in a text. The views are into that text or into the document's references.
struct Link {
    std::string_view text; ///< what the brackets hold, raw
    std::string_view url;
    std::optional<std::string_view> title;
    std::size_t end = 0;    ///< position behind it
    std::uint32_t walk = 0; ///< by which its brackets were found (see `BracketPairs`)
};

} // namespace quillmar::Markdown
