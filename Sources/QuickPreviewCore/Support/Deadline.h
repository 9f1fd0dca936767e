#pragma once

#include <chrono>
#include <functional>

namespace quillmar {

using Clock = std::function<std::chrono::steady_clock::time_point()>;

/// The clock of the machine; never set back.
inline std::chrono::steady_clock::time_point systemClock() { return std::chrono::steady_clock::now(); }

/// The moment when an answer must be given, by a clock that a test may replace.
class Deadline {
public:
    /// \p budget seconds from now on.
    explicit Deadline(double budget, Clock clock = systemClock)
        : clock_(std::move(clock)),
          end_(clock_() + std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                              std::chrono::duration<double>(budget))) {}

    bool passed() const { return clock_() > end_; }
    /// True from the very moment on: nothing may begin.
    bool reached() const { return clock_() >= end_; }

private:
    Clock clock_;
    std::chrono::steady_clock::time_point end_;
};

} // namespace quillmar
