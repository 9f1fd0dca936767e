#include "Tests/QuillmarViewer/Screen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace quillmar {
namespace {

constexpr long maxPropertyWords = 1'048'576;

/// Windows come and go while they are asked about.
int ignoreError(Display*, XErrorEvent*) { return 0; }

} // namespace

struct Screen::Connection {
    Display* display = nullptr;
    Window root = 0;
    Window own = 0; ///< receives what has been copied

    Atom atom(const char* name) const { return XInternAtom(display, name, 0); }

    std::string text(Window window, Atom property) const {
        Atom type = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char* bytes = nullptr;
        XGetWindowProperty(display, window, property, 0, maxPropertyWords, 0, AnyPropertyType, &type, &format,
                           &count, &rest, &bytes);
        constexpr int bitsOfBytes = 8;
        std::string result;
        if (bytes != nullptr && format == bitsOfBytes) result.assign(bytes, bytes + count);
        if (bytes != nullptr) XFree(bytes);
        return result;
    }

    struct Family {
        Window parent = 0;
        std::vector<Window> children;
    };
    Family family(Window window) const {
        Window top = 0;
        Window* children = nullptr;
        unsigned count = 0;
        Family result;
        if (XQueryTree(display, window, &top, &result.parent, &children, &count) == 0) return {};
        if (children != nullptr) {
            result.children.assign(children, children + count);
            XFree(children);
        }
        return result;
    }

    std::optional<XWindowAttributes> attributes(Window window) const {
        XWindowAttributes result{};
        if (XGetWindowAttributes(display, window, &result) == 0) return std::nullopt;
        return result;
    }

    std::vector<std::pair<Window, std::string>> named() const {
        std::vector<std::pair<Window, std::string>> result;
        for (const Window window : family(root).children) {
            const auto about = attributes(window);
            if (!about || about->map_state != IsViewable) continue;
            std::string title = text(window, atom("_NET_WM_NAME"));
            if (title.empty()) title = text(window, XA_WM_NAME);
            if (!title.empty()) result.emplace_back(window, std::move(title));
        }
        return result;
    }

    Picture picture(int x, int y, int width, int height) const {
        XImage* image = XGetImage(display, root, x, y, static_cast<unsigned>(width),
                                  static_cast<unsigned>(height), ~0UL, ZPixmap);
        if (image == nullptr) return {};
        Picture picture{.width = width, .height = height, .pixels = {}};
        constexpr unsigned redShift = 16;
        constexpr unsigned greenShift = 8;
        constexpr unsigned byte = 0xFF;
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column) {
                const unsigned long pixel = image->f.get_pixel(image, column, row);
                picture.pixels.push_back({.red = static_cast<std::uint8_t>(pixel >> redShift & byte),
                                          .green = static_cast<std::uint8_t>(pixel >> greenShift & byte),
                                          .blue = static_cast<std::uint8_t>(pixel & byte)});
            }
        image->f.destroy_image(image);
        return picture;
    }
};

Screen::Screen(const std::string& display) : connection_(new Connection) {
    XSetErrorHandler(ignoreError);
    connection_->display = XOpenDisplay(display.c_str());
    if (connection_->display == nullptr) {
        delete connection_;
        throw std::runtime_error("cannot open the display " + display);
    }
    connection_->root = XDefaultRootWindow(connection_->display);
    connection_->own = XCreateSimpleWindow(connection_->display, connection_->root, 0, 0, 1, 1, 0, 0, 0);
}

Screen::~Screen() {
    XCloseDisplay(connection_->display);
    delete connection_;
}

std::vector<std::string> Screen::titles() const {
    std::vector<std::string> result;
    for (auto& [window, title] : connection_->named()) result.push_back(std::move(title));
    return result;
}

std::optional<Screen::Window> Screen::window(const std::string& title) const {
    for (const auto& [window, name] : connection_->named())
        if (name == title) return window;
    return std::nullopt;
}

Screen::Window Screen::makeWindow(const std::string& title) const {
    Display* display = connection_->display;
    const auto area = connection_->attributes(connection_->root);
    constexpr int side = 60;
    const Window window = XCreateSimpleWindow(display, connection_->root, area->width - side,
                                              area->height - side, side, side, 0, 0, 0);
    XStoreName(display, window, title.c_str());
    XMapRaised(display, window);
    XSync(display, 0);
    focus(window);
    return window;
}

void Screen::destroyWindow(Window window) const {
    XDestroyWindow(connection_->display, window);
    XSync(connection_->display, 0);
}

bool Screen::hasWindowManager() const {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* bytes = nullptr;
    XGetWindowProperty(connection_->display, connection_->root, connection_->atom("_NET_SUPPORTING_WM_CHECK"),
                       0, 1, 0, XA_WINDOW, &type, &format, &count, &rest, &bytes);
    if (bytes != nullptr) XFree(bytes);
    return count == 1;
}

void Screen::focus(Window window) const {
    XRaiseWindow(connection_->display, window);
    XSetInputFocus(connection_->display, window, RevertToPointerRoot, CurrentTime);
    XSync(connection_->display, 0);
}

bool Screen::hasFocus(Window window) const {
    Window focused = 0;
    int revert = 0;
    XGetInputFocus(connection_->display, &focused, &revert);
    while (focused > PointerRoot && focused != window) focused = connection_->family(focused).parent;
    return focused == window;
}

Screen::Window Screen::parentOf(Window window) const {
    Window parent = 0;
    XGetTransientForHint(connection_->display, window, &parent);
    return parent;
}

Screen::Place Screen::place(Window window) const {
    const auto about = connection_->attributes(window);
    if (!about) return {};
    return {.x = about->x, .y = about->y, .width = about->width, .height = about->height};
}

void Screen::resize(Window window, int width, int height) const {
    XResizeWindow(connection_->display, window, static_cast<unsigned>(width), static_cast<unsigned>(height));
    XSync(connection_->display, 0);
}

Picture Screen::picture(Window window) const {
    const auto area = connection_->attributes(connection_->root);
    const auto about = connection_->attributes(window);
    if (!about || about->map_state != IsViewable) return {};
    const int left = std::max(0, about->x);
    const int top = std::max(0, about->y);
    const int right = std::min(area->width, about->x + about->width);
    const int bottom = std::min(area->height, about->y + about->height);
    if (right <= left || bottom <= top) return {};
    return connection_->picture(left, top, right - left, bottom - top);
}

Color Screen::colorAt(Window window, int x, int y) const {
    const auto about = connection_->attributes(window);
    if (!about || about->map_state != IsViewable) return {};
    const Picture pixel = connection_->picture(about->x + x, about->y + y, 1, 1);
    return pixel.pixels.empty() ? Color() : pixel.pixels.front();
}

std::string Screen::clipboard() const {
    const Connection& connection = *connection_;
    const Atom received = connection.atom("QUILLMAR_COPIED");
    XDeleteProperty(connection.display, connection.own, received);
    XConvertSelection(connection.display, connection.atom("CLIPBOARD"), connection.atom("UTF8_STRING"),
                      received, connection.own, CurrentTime);
    XSync(connection.display, 0);
    constexpr std::chrono::seconds patience{2};
    const auto end = std::chrono::steady_clock::now() + patience;
    XEvent event{};
    while (XCheckTypedWindowEvent(connection.display, connection.own, SelectionNotify, &event) == 0) {
        if (std::chrono::steady_clock::now() > end) return {};
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return event.xselection.property != 0 ? connection.text(connection.own, received) : std::string();
}

} // namespace quillmar
