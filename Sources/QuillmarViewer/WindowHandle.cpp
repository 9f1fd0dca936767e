#include "QuillmarViewer/WindowHandle.h"

#include <charconv>

namespace quillmar::WindowHandle {
namespace {

constexpr std::string_view x11Prefix = "x11:";
constexpr std::string_view waylandPrefix = "wayland:";

} // namespace

std::optional<unsigned long> x11Window(std::string_view handle) {
    if (!handle.starts_with(x11Prefix)) return std::nullopt;
    const std::string_view number = handle.substr(x11Prefix.size());
    constexpr int hexadecimal = 16;
    unsigned long window = 0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), window, hexadecimal);
    const bool isNumber = error == std::errc() && end == number.data() + number.size();
    if (!isNumber || window == 0) return std::nullopt;
    return window;
}

std::optional<std::string> waylandExport(std::string_view handle) {
    if (!handle.starts_with(waylandPrefix)) return std::nullopt;
    const std::string_view exported = handle.substr(waylandPrefix.size());
    if (exported.empty() || exported.size() > maxWaylandBytes) return std::nullopt;
    if (exported.find('\0') != exported.npos) return std::nullopt;
    return std::string(exported);
}

} // namespace quillmar::WindowHandle
