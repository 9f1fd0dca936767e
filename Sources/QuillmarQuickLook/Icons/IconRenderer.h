#pragma once

#include "Platform/Data.h"
#include "QuillmarQuickLook/ChildProcess.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace quillmar {

/// Has pictures drawn by a program of its own, for what draws them takes longer to load than a preview takes,
/// and pictures come from strangers. The program is started by the first picture and ends with this object;
/// when it dies or hangs, so does only the picture that did it.
class IconRenderer {
public:
    /// \p program is the path of the drawing program.
    explicit IconRenderer(std::string program) : program_(std::move(program)) {}

    /// The program that belongs to this one: beside it, or where the installation puts it.
    static std::string standardProgram();

    /// \p picture, an SVG or a PNG, as a PNG of 128 by 128 pixels; empty when it cannot be drawn, or not in
    /// time. None when there is no program that draws.
    std::optional<Data> render(DataView picture);

    /// Bytes of a picture. Themes have up to 300 KB.
    static constexpr std::size_t maxPictureBytes = 1'048'576;
    /// Bytes of an icon: twice what 128 by 128 pixels take without any compression.
    static constexpr std::size_t maxIconBytes = 131'072;
    /// A page waits for each of its icons.
    static constexpr std::chrono::milliseconds patience{500};
    /// The program loads what it draws with, which takes long the first time.
    static constexpr std::chrono::milliseconds startPatience{3'000};

private:
    bool start();

    std::string program_;
    std::optional<ChildProcess> process_;
};

} // namespace quillmar
