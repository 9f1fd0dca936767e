#pragma once

#include "Support/SeededHash.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// Numbers different texts, which a stranger may choose, from 0 on in the order in which they come. Made for
/// documents of a few hundred thousand short ones, where a dictionary of nodes waits for memory all the time.
class TextIndex {
public:
    TextIndex();

    /// The number of \p text; `none` when it has none.
    std::size_t find(std::string_view text) const;
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    /// The number of \p text, which is given to it now if it has none: then it is `size()` before the call.
    std::size_t insert(std::string_view text);

    std::size_t size() const { return ends_.size() - 1; }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t place = 0; ///< number and 1; 0: the slot is free
    };

    /// The slot of \p text, or the free one where it belongs.
    std::size_t slotOf(std::string_view text, std::uint32_t hash) const;
    std::uint32_t hashOf(std::string_view text) const;
    std::string_view textAt(std::size_t number) const;
    void grow();

    SeededHash hash_;
    std::string texts_;             ///< one behind the other
    std::vector<std::size_t> ends_; ///< in `texts_`; the first is where the first text begins
    std::vector<Slot> slots_;       ///< their number is a power of two; a text is in the first that was free
                                    ///< from its hash on
};

} // namespace quillmar
