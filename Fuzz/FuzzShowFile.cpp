#include "Fuzz/FuzzTarget.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"
#include "QuillmarViewer/ItemLocation.h"
#include "QuillmarViewer/WindowHandle.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>

namespace quillmar {
namespace {

void requireSoundness(const ItemLocation::Answer& answer) {
    require(!answer.name.empty());
    require(UTF8::validPrefix(answer.name) == answer.name.size());
    require(answer.url.has_value() == answer.message.empty());
    if (!answer.url) return;
    const std::string& path = answer.url->path();
    require(path.starts_with('/') && path.find('\0') == path.npos);
    constexpr std::size_t repaired = 3; // bytes for one that is no text
    require(answer.url->lastPathComponent().size() <= repaired * NAME_MAX);
}

void find(const std::string& uri) {
    // Nothing but what GIO itself knows: no mounts, no other process.
    static const bool isAlone = ::setenv("GIO_USE_VFS", "local", 1) == 0;
    require(isAlone);
    bool isFound = false;
    ItemLocation location;
    location.find(uri, [&isFound](const ItemLocation::Answer& answer) {
        require(!isFound);
        isFound = true;
        requireSoundness(answer);
    });
    while (!isFound) g_main_context_iteration(nullptr, TRUE);
}

void requireSoundHandles(const std::string& handle) {
    if (const auto window = WindowHandle::x11Window(handle)) {
        require(*window != 0);
        require(!WindowHandle::waylandExport(handle));
    }
    if (const auto exported = WindowHandle::waylandExport(handle)) {
        require(handle == "wayland:" + *exported);
        require(!exported->empty() && exported->size() <= WindowHandle::maxWaylandBytes);
    }
}

} // namespace

/// A line for the address, and one for the window. The bus lets through text without zero bytes.
void fuzz(DataView input) {
    std::string text = decodedText(std::string(input));
    std::erase(text, '\0');
    const std::size_t lineEnd = std::min(text.find('\n'), text.size());
    find(text.substr(0, lineEnd));
    requireSoundHandles(text.substr(std::min(lineEnd + 1, text.size())));
}

} // namespace quillmar
