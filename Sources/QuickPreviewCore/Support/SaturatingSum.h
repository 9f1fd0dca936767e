#pragma once

#include <cstdint>
#include <limits>

namespace quillmar {

/// \p a + \p b, stopping at the limits of 64 bits. Sizes come from strangers and may add up to anything.
constexpr std::int64_t saturatingSum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(a, b, &sum)) return sum;
    return b > 0 ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
}

} // namespace quillmar
