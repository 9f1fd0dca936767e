// The least program that shows a page in a window of the same libraries: what the viewer's start is held
// against. Prepares nothing, confines nothing of its own, answers nobody.
//
//   BareWindow FILE.html

#include <gtk/gtk.h>
#include <webkit/webkit.h>

int main(int argc, char** argv) {
    if (argc != 2 || gtk_init_check() == FALSE) return 2;
    GtkWidget* window = gtk_window_new();
    GtkWidget* view = webkit_web_view_new();
    gtk_window_set_child(GTK_WINDOW(window), view);
    gtk_window_set_default_size(GTK_WINDOW(window), 800, 800);
    char* uri = g_filename_to_uri(argv[1], nullptr, nullptr);
    webkit_web_view_load_uri(WEBKIT_WEB_VIEW(view), uri);
    g_free(uri);
    gtk_window_present(GTK_WINDOW(window));
    g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}
