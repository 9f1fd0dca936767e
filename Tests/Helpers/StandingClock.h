#pragma once

#include "Support/Deadline.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <utility>

namespace quillmar {

/// A clock that stands still until a certain look at it. The first look is that of the deadline's own making.
class StandingClock {
public:
    /// For a deadline; this object must outlive it.
    Clock clock() {
        return [this] { return look(); };
    }

    std::size_t looks() const { return looks_; }

    /// At look number \p look, \p seconds have gone by.
    void leapAt(std::size_t look, std::chrono::seconds seconds = std::chrono::hours(24)) {
        leapLook_ = look;
        leap_ = seconds;
    }

    /// \p action is called at each look, with its number.
    void onLook(std::function<void(std::size_t)> action) { action_ = std::move(action); }

private:
    std::chrono::steady_clock::time_point look() {
        const std::size_t number = ++looks_;
        if (action_) action_(number);
        const std::chrono::steady_clock::time_point start(std::chrono::hours(1));
        return leapLook_ != 0 && number >= leapLook_ ? start + leap_ : start;
    }

    std::atomic<std::size_t> looks_ = 0;
    std::size_t leapLook_ = 0; ///< 0: never
    std::chrono::seconds leap_{};
    std::function<void(std::size_t)> action_;
};

} // namespace quillmar
