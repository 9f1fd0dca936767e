#include "QuillmarViewer/ParentWindow.h"

#include <charconv>
#include <string_view>

#ifdef GDK_WINDOWING_X11
#include <gdk/x11/gdkx.h>
#endif
#ifdef GDK_WINDOWING_WAYLAND
#include <gdk/wayland/gdkwayland.h>
#endif

namespace quillmar {
namespace {

constexpr std::string_view x11Prefix = "x11:";
constexpr std::string_view waylandPrefix = "wayland:";

#ifdef GDK_WINDOWING_X11
// A macro of the library casts as C does.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"
void setX11Parent(GdkSurface* surface, std::string_view number) {
    constexpr int hexadecimal = 16;
    unsigned long parent = 0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), parent, hexadecimal);
    const bool isNumber = error == std::errc() && end == number.data() + number.size();
    if (!isNumber || parent == 0) return;
    GdkDisplay* display = gdk_surface_get_display(surface);
    // The window may be gone, which would be an error of ours.
    gdk_x11_display_error_trap_push(display);
    XSetTransientForHint(gdk_x11_display_get_xdisplay(display), gdk_x11_surface_get_xid(surface), parent);
    gdk_x11_display_error_trap_pop_ignored(display);
}
#pragma GCC diagnostic pop
#endif

} // namespace

void setParentWindow(GtkWindow* window, const std::string& handle) {
    GdkSurface* surface = gtk_native_get_surface(GTK_NATIVE(window));
    if (surface == nullptr) return;
#ifdef GDK_WINDOWING_X11
    if (GDK_IS_X11_SURFACE(surface) && handle.starts_with(x11Prefix))
        setX11Parent(surface, std::string_view(handle).substr(x11Prefix.size()));
#endif
#ifdef GDK_WINDOWING_WAYLAND
    if (GDK_IS_WAYLAND_TOPLEVEL(surface) && handle.starts_with(waylandPrefix)) {
        const std::string exported = handle.substr(waylandPrefix.size());
        gdk_wayland_toplevel_set_transient_for_exported(GDK_TOPLEVEL(surface), exported.c_str());
    }
#endif
}

} // namespace quillmar
