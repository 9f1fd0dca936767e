#pragma once

#include <array>
#include <cstddef>
#include <functional>

namespace quillmar {

/// What an input and its doubles take: seconds of the processor, the least of several runs.
struct Growth {
    static constexpr double asked = 2.2;      ///< at most, per doubling
    static constexpr double shortest = 0.001; ///< seconds; the growth of less is that of a few page faults

    std::array<double, 4> seconds{}; ///< for an eighth of the largest, a quarter, a half and all of it

    /// By how much the time grows from one size to the next, where it grows most. 0 where none takes \p
    /// shortest.
    double largestFactor() const;
    /// By how much it grows with each doubling, from the first size that takes \p shortest to the largest. Of
    /// many classes some always meet a slow moment of the machine, which this spreads over all doublings.
    double meanFactor() const;
};

/// Does the work once.
using Job = std::function<void()>;

/// Measures the jobs that \p prepare makes for \p largest and its parts.
Growth measureGrowth(std::size_t largest, const std::function<Job(std::size_t size)>& prepare);

/// How many times as long \p job takes as \p other: the least of some runs of each, in turn, so that a slow
/// moment of the machine falls on both; of more runs when that is above \p bound.
double timesAsLong(const Job& job, const Job& other, double bound);

} // namespace quillmar
