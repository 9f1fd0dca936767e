#include "QuillmarIconRenderer/RenderedIcon.h"

#include <algorithm>
#include <cairo.h>
#include <cstdint>
#include <cstring>
#include <librsvg/rsvg.h>
#include <memory>

namespace quillmar {
namespace {

struct Deleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
};
using Surface = std::unique_ptr<cairo_surface_t, Deleter>;
using Context = std::unique_ptr<cairo_t, Deleter>;
using SVG = std::unique_ptr<RsvgHandle, Deleter>;

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";

/// The number at \p offset of a PNG's first chunk, big-endian (PNG, 11.2.2).
std::uint32_t bigEndian(DataView data, std::size_t offset) {
    std::uint32_t value = 0;
    for (const char c : data.substr(offset, sizeof value)) value = value << 8 | static_cast<unsigned char>(c);
    return value;
}

/// False for a PNG that would take more memory than an icon has any use for.
bool hasModestSize(DataView png) {
    constexpr std::size_t widthOffset = 16;
    constexpr std::size_t heightOffset = 20;
    constexpr std::size_t headerBytes = 24;
    if (png.size() < headerBytes) return false;
    const auto isModest = [](std::uint32_t side) { return side > 0 && side <= maxPictureSide; };
    return isModest(bigEndian(png, widthOffset)) && isModest(bigEndian(png, heightOffset));
}

cairo_status_t readFromView(void* closure, unsigned char* room, unsigned length) {
    auto& rest = *static_cast<DataView*>(closure);
    if (rest.size() < length) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(room, rest.data(), length);
    rest.remove_prefix(length);
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t appendToData(void* closure, const unsigned char* bytes, unsigned length) {
    static_cast<Data*>(closure)->append(reinterpret_cast<const char*>(bytes), length);
    return CAIRO_STATUS_SUCCESS;
}

bool drawPNG(cairo_t* context, DataView png, int pixels) {
    if (!hasModestSize(png)) return false;
    const Surface picture(cairo_image_surface_create_from_png_stream(readFromView, &png));
    if (cairo_surface_status(picture.get()) != CAIRO_STATUS_SUCCESS) return false;
    const double width = cairo_image_surface_get_width(picture.get());
    const double height = cairo_image_surface_get_height(picture.get());
    const double scale = pixels / std::max(width, height);
    cairo_translate(context, (pixels - width * scale) / 2, (pixels - height * scale) / 2);
    cairo_scale(context, scale, scale);
    cairo_set_source_surface(context, picture.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BEST);
    cairo_paint(context);
    return true;
}

bool drawSVG(cairo_t* context, DataView svg, int pixels) {
    // From memory and without a base, so that no reference leads to a file.
    const SVG handle(
        rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), nullptr));
    if (!handle) return false;
    const RsvgRectangle square{.x = 0, .y = 0, .width = double(pixels), .height = double(pixels)};
    return rsvg_handle_render_document(handle.get(), context, &square, nullptr) != FALSE;
}

} // namespace

std::optional<Data> renderedIcon(DataView picture, int pixels) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels, pixels));
    const Context context(cairo_create(surface.get()));
    const bool isPNG = picture.starts_with(pngSignature);
    const bool isDrawn =
        isPNG ? drawPNG(context.get(), picture, pixels) : drawSVG(context.get(), picture, pixels);
    if (!isDrawn || cairo_status(context.get()) != CAIRO_STATUS_SUCCESS) return std::nullopt;
    Data png;
    if (cairo_surface_write_to_png_stream(surface.get(), appendToData, &png) != CAIRO_STATUS_SUCCESS)
        return std::nullopt;
    return png;
}

} // namespace quillmar
