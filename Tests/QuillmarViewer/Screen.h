#pragma once

#include "Tests/QuillmarViewer/Picture.h"

#include <optional>
#include <string>
#include <vector>

namespace quillmar {

/// What is on an X11 display, seen as another program sees it.
class Screen {
public:
    using Window = unsigned long;

    /// \p display is a name such as ":1". Throws when it cannot be opened.
    explicit Screen(const std::string& display);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Names of the windows that can be seen.
    std::vector<std::string> titles() const;
    /// The window called \p title, while it can be seen.
    std::optional<Window> window(const std::string& title) const;

    /// A window of the test's own, in the lower right corner, which has the focus.
    Window makeWindow(const std::string& title) const;
    void destroyWindow(Window window) const;

    /// Of those that frame windows and give them the focus.
    bool hasWindowManager() const;

    void focus(Window window) const;
    bool hasFocus(Window window) const;
    /// The window that \p window belongs to; 0 when there is none.
    Window parentOf(Window window) const;
    struct Place {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
    };
    /// All zero when it is gone.
    Place place(Window window) const;
    /// Gives it a size, as a person does who drags its corner.
    void resize(Window window, int width, int height) const;

    /// Of the part of the screen where a window is; empty when it is gone.
    Picture picture(Window window) const;
    /// One pixel of that part; black when it is gone.
    Color colorAt(Window window, int x, int y) const;

    /// The text that has been copied last; empty when there is none.
    std::string clipboard() const;

private:
    struct Connection;

    Connection* connection_;
};

} // namespace quillmar
