#include "QuillmarQuickLook/InstalledProgram.h"
#include "QuillmarViewer/GObjectPointer.h"
#include "QuillmarViewer/ItemLocation.h"
#include "QuillmarViewer/LibrarySettings.h"
#include "QuillmarViewer/Viewer.h"

#include <charconv>
#include <cstdio>
#include <malloc.h>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Of what follows "--service"; none when it is not understood.
std::optional<quillmar::ServiceOptions> serviceOptions(const std::vector<std::string>& arguments) {
    constexpr std::string_view idle = "--idle-seconds=";
    quillmar::ServiceOptions options;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--save-pictures") {
            options.maySavePictures = true;
        } else if (argument.starts_with(idle)) {
            const char* end = argument.data() + argument.size();
            const auto [read, error] = std::from_chars(argument.data() + idle.size(), end, options.idleSeconds);
            if (error != std::errc() || read != end) return std::nullopt;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

} // namespace

/// `QuillmarViewer PATH...` shows items in a window; `--service` serves file managers. The paths are absolute,
/// for it is the command that starts this program.
int main(int argc, char** argv) {
    using namespace quillmar;
    LibrarySettings::apply();
    ::mallopt(M_ARENA_MAX, 1); // threads come and go, what they have freed would stay
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::string command = installedProgram("QuillmarQuickLook");
    if (command.empty()) {
        std::fputs("quillmar: the program that makes the pages is missing: install Quillmar again\n", stderr);
        return 1;
    }
    Viewer viewer(std::move(command));
    if (!arguments.empty() && arguments.front() == "--service") {
        const auto options = serviceOptions(arguments);
        if (options) return viewer.serve(*options);
        std::fputs("quillmar: use --service [--idle-seconds=SECONDS]\n", stderr);
        return 2;
    }
    std::vector<std::string> uris;
    for (const std::string& path : arguments) {
        if (ItemLocation::isResource(path)) {
            uris.push_back(path); // gets a page that says so
            continue;
        }
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
