#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmar {

/// A hash that no stranger can compute: names that are chosen to collide would make every look-up a search.
/// Each object has its own seed, made from random numbers that the process draws once.
class SeededHash {
public:
    SeededHash();

    /// The hash of \p text in the context \p number.
    std::size_t operator()(std::string_view text, std::uint64_t number) const;

private:
    std::uint64_t seed_ = 0;
    std::uint64_t factor_ = 0;
};

} // namespace quillmar
