#pragma once

#include "Markdown/TextIndex.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// Gives the headings of one document the identifiers that links within it use.
class HeadingIdentifiers {
public:
    /// Lower-cased \p heading of letters, marks, numbers, "-" and "_", its spaces hyphens; from the second one
    /// of the same text on with "-1", "-2" and so on behind. Safe in an attribute as it is. Valid until the
    /// next call.
    const std::string& slug(std::string_view heading);

private:
    TextIndex bases_; ///< identifiers without a number, in the form in which equal ones are the same bytes
    std::vector<std::size_t> timesGiven_; ///< by the number of the base
    std::string identifier_;
};

} // namespace quillmar
