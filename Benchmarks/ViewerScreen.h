#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace quillmar {

/// The display, watched from outside: what a person would see, and when.
class ViewerScreen {
public:
    using Moment = std::chrono::steady_clock::time_point;
    static Moment now() { return std::chrono::steady_clock::now(); }

    ViewerScreen();
    ~ViewerScreen();
    ViewerScreen(const ViewerScreen&) = delete;
    ViewerScreen& operator=(const ViewerScreen&) = delete;

    static constexpr unsigned long red = 0xFF0000;
    static constexpr unsigned long blue = 0x0000FF;

    /// Waits until the middle of the topmost window is of \p color; returns the milliseconds since \p start.
    /// Ends the program when that does not happen.
    double millisecondsUntil(unsigned long color, Moment start) const;

    static pid_t start(const std::vector<std::string>& arguments);
    static void end(pid_t process);
    /// Proportional set size of \p process and all that it has started.
    static double megabytes(pid_t process);

private:
    void* display_;
};

} // namespace quillmar
