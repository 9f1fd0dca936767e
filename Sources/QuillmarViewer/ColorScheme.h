#pragma once

#include <gio/gio.h>

namespace quillmar {

/// Follows the desktop's choice of light or dark, live: that of the settings portal, and of GNOME's settings
/// where there is no portal. Pages follow the program's own setting.
class ColorScheme {
public:
    /// \p connection may be null.
    explicit ColorScheme(GDBusConnection* connection);
    ~ColorScheme();
    ColorScheme(const ColorScheme&) = delete;
    ColorScheme& operator=(const ColorScheme&) = delete;

private:
    struct Callbacks;

    GDBusConnection* connection_ = nullptr;
    guint subscription_ = 0;
    GSettings* settings_ = nullptr;
    GCancellable* reading_ = nullptr;
};

} // namespace quillmar
