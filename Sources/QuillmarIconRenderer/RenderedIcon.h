#pragma once

#include "Platform/Data.h"

#include <optional>

namespace quillmar {

/// \p picture, an SVG or a PNG, as a square PNG of \p pixels a side, in its own proportions. None when it is
/// neither, or larger than `maxPictureSide`. Nothing that an SVG refers to is loaded.
std::optional<Data> renderedIcon(DataView picture, int pixels);

/// Pixels of a PNG that is read. Themes have up to 1,024.
inline constexpr int maxPictureSide = 2'048;

} // namespace quillmar
