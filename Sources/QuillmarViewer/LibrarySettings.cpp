#include "QuillmarViewer/LibrarySettings.h"

#include <array>
#include <cstdlib>
#include <vector>

namespace quillmar::LibrarySettings {
namespace {

struct Setting {
    const char* name;
    const char* value;
};

/// Pages are text. A graphics library for them would cost a third of a second at the start and 60 MB, and this
/// process would load one only to learn the name of the device that pages are drawn on. They run no scripts
/// that would be worth compiling.
constexpr std::array settings{
    Setting{"GSK_RENDERER", "cairo"},
    Setting{"GDK_DEBUG", "gl-disable"},
    Setting{"WEBKIT_DISABLE_DMABUF_RENDERER", "1"},
    Setting{"WEBKIT_WEB_RENDER_DEVICE_FILE", "/dev/null"},
    Setting{"JSC_useJIT", "0"},
};

/// Names of those that were not the user's.
std::vector<const char*>& applied() {
    static std::vector<const char*> names;
    return names;
}

} // namespace

void apply() {
    for (const Setting& setting : settings) {
        if (std::getenv(setting.name) != nullptr) continue;
        ::setenv(setting.name, setting.value, 1);
        applied().push_back(setting.name);
    }
}

void keepFrom(GAppLaunchContext* context) {
    for (const char* name : applied()) g_app_launch_context_unsetenv(context, name);
}

} // namespace quillmar::LibrarySettings
