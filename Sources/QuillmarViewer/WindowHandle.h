#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The window of another program, as file managers name it: "x11:" and a hexadecimal number, or "wayland:" and
/// what its program exported it as. Anybody may send anything.
namespace quillmar::WindowHandle {

/// Never 0.
std::optional<unsigned long> x11Window(std::string_view handle);
/// Without zero bytes, at most `maxWaylandBytes`.
std::optional<std::string> waylandExport(std::string_view handle);

/// Wayland's library breaks the connection off, and GTK ends the program, over a message that is larger than
/// 4,096 bytes (`wl_connection_write`). The compositors' own handles have some 40.
inline constexpr std::size_t maxWaylandBytes = 1'024;

} // namespace quillmar::WindowHandle
