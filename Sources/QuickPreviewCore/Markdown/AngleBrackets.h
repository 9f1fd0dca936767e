#pragma once

#include "Markdown/NextOccurrence.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// What "<" begins in a text.
struct AngleBracket {
    enum class Kind { address, mailAddress, comment, tag };
    Kind kind = Kind::tag;
    std::string_view content; ///< of addresses, what stands between the brackets; of tags, all of it
    std::size_t end = 0;      ///< position behind it
};

/// Reads the angle-bracket constructs of one text, from left to right.
class AngleBrackets {
public:
    /// Another text begins; it must outlive the questions about it.
    void reset(std::string_view text);

    /// The construct that begins with the "<" at \p position; none when that is text.
    std::optional<AngleBracket> angleBracket(std::size_t position, std::size_t limit);

private:
    std::size_t nextWhiteSpace(std::size_t position);

    std::string_view text_;
    NextOccurrence close_{">"};
    NextOccurrence commentEnd_{"-->"};
    NextOccurrence at_{"@"};
    NextOccurrence fullStop_{"."};
    std::size_t whiteSpaceAskedFrom_ = 0;
    std::size_t whiteSpace_ = 0;
};

/// True when \p tag, from "<" to the first ">", is an opening or closing tag with well-formed attributes.
bool isInlineTag(std::string_view tag);

} // namespace quillmar::Markdown
