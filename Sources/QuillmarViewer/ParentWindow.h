#pragma once

#include <gtk/gtk.h>
#include <string>

namespace quillmar {

/// Makes \p window belong to the window that another program names by \p handle: "x11:" and a hexadecimal
/// number, or "wayland:" and an exported handle. Any other handle, or one of another display, is ignored. The
/// window must be realized.
void setParentWindow(GtkWindow* window, const std::string& handle);

} // namespace quillmar
