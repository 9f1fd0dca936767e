#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmar {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Color&) const = default;
};

/// Pixels, from a file or from the screen.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Color> pixels; ///< row by row

    /// None when the file at \p path is no picture.
    static std::optional<Picture> read(const std::string& path);

    Color at(int x, int y) const;
    /// How much of the picture has \p color, 0 to 1.
    double share(Color color) const;
    bool has(Color color) const { return share(color) > 0; }
    /// Pixels that differ much from the one in the upper left corner: what is drawn on the page.
    int ink() const;
};

} // namespace quillmar
