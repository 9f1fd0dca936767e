#include "Benchmarks/ViewerScreen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quillmar {
namespace {

constexpr auto patience = std::chrono::seconds(20);
constexpr auto pause = std::chrono::microseconds(1'500);

Display* asDisplay(void* display) { return static_cast<Display*>(display); }

std::vector<pid_t> childrenOf(pid_t process) {
    std::vector<pid_t> children;
    const std::string tasks = "/proc/" + std::to_string(process) + "/task";
    std::error_code error;
    for (const auto& task : std::filesystem::directory_iterator(tasks, error)) {
        std::ifstream list(task.path() / "children");
        for (pid_t child = 0; list >> child;) children.push_back(child);
    }
    return children;
}

} // namespace

ViewerScreen::ViewerScreen() : display_(XOpenDisplay(nullptr)) {
    if (display_ != nullptr) return;
    std::fputs("no display\n", stderr);
    std::exit(1);
}

ViewerScreen::~ViewerScreen() { XCloseDisplay(asDisplay(display_)); }

double ViewerScreen::millisecondsUntil(unsigned long color, Moment start) const {
    Display* display = asDisplay(display_);
    const Window root = DefaultRootWindow(display);
    // Without a window manager windows appear in the corner.
    constexpr int x = 300;
    constexpr int y = 350;
    while (now() - start < patience) {
        XImage* image = XGetImage(display, root, x, y, 1, 1, AllPlanes, ZPixmap);
        const unsigned long pixel = XGetPixel(image, 0, 0) & 0xFFFFFFU;
        XDestroyImage(image);
        if (pixel == color) return std::chrono::duration<double, std::milli>(now() - start).count();
        std::this_thread::sleep_for(pause);
    }
    std::fputs("the page has not appeared\n", stderr);
    std::exit(1);
}

pid_t ViewerScreen::start(const std::vector<std::string>& arguments) {
    std::vector<std::string> copies = arguments;
    std::vector<char*> pointers;
    for (std::string& argument : copies) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    pid_t process = -1;
    if (::posix_spawn(&process, pointers.front(), nullptr, nullptr, pointers.data(), environ) != 0)
        std::exit(1);
    return process;
}

void ViewerScreen::end(pid_t process) {
    ::kill(process, SIGTERM);
    ::waitpid(process, nullptr, 0);
}

double ViewerScreen::megabytes(pid_t process) {
    constexpr double kilobytesPerMegabyte = 1'000;
    double kilobytes = 0;
    std::vector<pid_t> waiting{process};
    while (!waiting.empty()) {
        const pid_t next = waiting.back();
        waiting.pop_back();
        for (const pid_t child : childrenOf(next)) waiting.push_back(child);
        std::ifstream rollup("/proc/" + std::to_string(next) + "/smaps_rollup");
        for (std::string word; rollup >> word;) {
            if (word != "Pss:") continue;
            double value = 0;
            rollup >> value;
            kilobytes += value;
            break;
        }
    }
    return kilobytes / kilobytesPerMegabyte;
}

} // namespace quillmar
