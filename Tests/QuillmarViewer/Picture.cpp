#include "Tests/QuillmarViewer/Picture.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <gdk-pixbuf/gdk-pixbuf.h>

namespace quillmar {

std::optional<Picture> Picture::read(const std::string& path) {
    GdkPixbuf* pixbuf = gdk_pixbuf_new_from_file(path.c_str(), nullptr);
    if (pixbuf == nullptr) return std::nullopt;
    Picture picture{
        .width = gdk_pixbuf_get_width(pixbuf), .height = gdk_pixbuf_get_height(pixbuf), .pixels = {}};
    const int channels = gdk_pixbuf_get_n_channels(pixbuf);
    const int stride = gdk_pixbuf_get_rowstride(pixbuf);
    const guint8* bytes = gdk_pixbuf_read_pixels(pixbuf);
    for (int y = 0; y < picture.height; ++y) {
        const guint8* pixel = bytes + std::ptrdiff_t{y} * stride;
        for (int x = 0; x < picture.width; ++x, pixel += channels)
            picture.pixels.push_back({.red = pixel[0], .green = pixel[1], .blue = pixel[2]});
    }
    g_object_unref(pixbuf);
    return picture;
}

Color Picture::at(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x));
}

double Picture::share(Color color) const {
    if (pixels.empty()) return 0;
    return static_cast<double>(std::ranges::count(pixels, color)) / static_cast<double>(pixels.size());
}

int Picture::ink() const {
    if (pixels.empty()) return 0;
    constexpr int much = 64;
    const Color ground = pixels.front();
    return static_cast<int>(std::ranges::count_if(
        pixels, [&](Color color) { return std::abs(color.green - ground.green) > much; }));
}

} // namespace quillmar
