#include "QuillmarViewer/OtherProgram.h"

#include "QuillmarViewer/GObjectPointer.h"
#include "QuillmarViewer/ItemLocation.h"
#include "QuillmarViewer/LibrarySettings.h"

#include <gtk/gtk.h>

namespace quillmar {

void openInOtherProgram(const std::string& uri) {
    if (ItemLocation::isResource(uri)) return;
    const GObjectPointer<GdkAppLaunchContext> context(
        gdk_display_get_app_launch_context(gdk_display_get_default()));
    LibrarySettings::keepFrom(G_APP_LAUNCH_CONTEXT(context.get()));
    g_app_info_launch_default_for_uri_async(uri.c_str(), G_APP_LAUNCH_CONTEXT(context.get()), nullptr, nullptr,
                                            nullptr);
}

} // namespace quillmar
