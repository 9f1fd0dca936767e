#include "QuillmarQuickLook/InstalledProgram.h"
#include "QuillmarViewer/GObjectPointer.h"
#include "QuillmarViewer/Viewer.h"

#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Pages are text: a graphics library of its own for them costs a third of a second at the start and 60 MB. The
/// user's own choice stands.
void drawSimply() {
    for (const auto& [name, value] : {std::pair{"GSK_RENDERER", "cairo"}, std::pair{"GDK_DEBUG", "gl-disable"},
                                      std::pair{"WEBKIT_DISABLE_DMABUF_RENDERER", "1"}})
        ::setenv(name, value, 0);
    ::mallopt(M_ARENA_MAX, 1); // threads come and go, what they have freed would stay
}

} // namespace

/// `QuillmarViewer PATH...` shows items in a window; `--service` serves file managers. The paths are absolute,
/// for it is the command that starts this program.
int main(int argc, char** argv) {
    using namespace quillmar;
    drawSimply();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::string command = installedProgram("QuillmarQuickLook");
    if (command.empty()) {
        std::fputs("quillmar: the program that makes the pages is missing: install Quillmar again\n", stderr);
        return 1;
    }
    Viewer viewer(std::move(command));
    const bool isService = !arguments.empty() && arguments.front() == "--service";
    if (isService) {
        const bool maySavePictures = arguments.size() > 1 && arguments[1] == "--save-pictures";
        return viewer.serve(maySavePictures);
    }
    std::vector<std::string> uris;
    for (const std::string& path : arguments) {
        const GObjectPointer<GFile> file(g_file_new_for_commandline_arg(path.c_str()));
        const GString8 uri(g_file_get_uri(file.get()));
        uris.emplace_back(uri.get());
    }
    if (uris.empty()) {
        std::fputs("quillmar: no item to show (see quillmar --help)\n", stderr);
        return 2;
    }
    return viewer.showItems(std::move(uris));
}
