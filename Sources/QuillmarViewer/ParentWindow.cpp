#include "QuillmarViewer/ParentWindow.h"

#include "QuillmarViewer/WindowHandle.h"

#ifdef GDK_WINDOWING_X11
#include <gdk/x11/gdkx.h>
#endif
#ifdef GDK_WINDOWING_WAYLAND
#include <gdk/wayland/gdkwayland.h>
#endif

namespace quillmar {
namespace {

#ifdef GDK_WINDOWING_X11
// A macro of the library casts as C does.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"
void setX11Parent(GdkSurface* surface, unsigned long parent) {
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
    const auto parent = WindowHandle::x11Window(handle);
    if (parent && GDK_IS_X11_SURFACE(surface)) setX11Parent(surface, *parent);
#endif
#ifdef GDK_WINDOWING_WAYLAND
    const auto exported = WindowHandle::waylandExport(handle);
    if (exported && GDK_IS_WAYLAND_TOPLEVEL(surface))
        gdk_wayland_toplevel_set_transient_for_exported(GDK_TOPLEVEL(surface), exported->c_str());
#endif
}

} // namespace quillmar
