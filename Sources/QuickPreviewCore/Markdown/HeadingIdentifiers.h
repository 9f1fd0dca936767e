#pragma once

#include "Markdown/TextIndex.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// Gives the headings of one document the identifiers that links within it use.
class HeadingIdentifiers {
public:
    /// Appends lower-cased \p heading of letters, marks, numbers, "-" and "_", its spaces hyphens; from the
    /// second one of the same text on with "-1", "-2" and so on behind. Safe in an attribute as it is.
    void appendSlug(std::string& html, std::string_view heading);

private:
    std::size_t baseOfSpelling(std::string_view identifier);

    TextIndex bases_; ///< identifiers without a number, in the form in which equal ones are the same bytes
    std::vector<std::uint32_t> timesGiven_; ///< by the number of the base
    TextIndex spellings_;                   ///< bases beyond ASCII, as they came
    std::vector<std::size_t> basesOf_;      ///< by the number of the spelling
};

} // namespace quillmar
