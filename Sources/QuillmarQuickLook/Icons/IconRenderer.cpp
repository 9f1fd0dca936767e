#include "QuillmarQuickLook/Icons/IconRenderer.h"

#include "QuillmarQuickLook/InstalledProgram.h"
#include "QuillmarQuickLook/MessageSocket.h"

namespace quillmar {
namespace {

/// True for a PNG of the size that was asked for (PNG, 5.2 and 11.2.2): the program that drew it has read what
/// strangers made, and what it answers is as hostile.
bool isIcon(DataView png) {
    using namespace std::string_view_literals;
    return png.starts_with("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x80\0\0\0\x80"sv);
}

} // namespace

std::string IconRenderer::standardProgram() { return installedProgram("QuillmarIconRenderer"); }

bool IconRenderer::start() {
    if (program_.empty()) return false;
    process_.emplace(program_, std::string(), std::vector<std::string>());
    const bool isReady =
        process_->isRunning() && MessageSocket(process_->socket(), startPatience).receive(0).has_value();
    if (!isReady) process_.reset();
    return isReady;
}

std::optional<Data> IconRenderer::render(DataView picture) {
    if (picture.size() > maxPictureBytes) return Data();
    if (!process_ && !start()) return std::nullopt;
    const MessageSocket messages(process_->socket(), patience);
    auto icon = messages.send(picture) ? messages.receive(maxIconBytes) : std::nullopt;
    if (!icon) process_.reset();
    if (!icon || !isIcon(*icon)) return Data();
    return icon;
}

} // namespace quillmar
