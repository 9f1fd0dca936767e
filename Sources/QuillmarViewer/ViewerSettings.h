#pragma once

#include <optional>
#include <string>

namespace quillmar {

/// What the user has chosen in windows, kept from one to the next (`$XDG_STATE_HOME/quillmar/viewer.ini`). What
/// cannot be read or written is as if nothing had been chosen.
class ViewerSettings {
public:
    /// \p file is an absolute path.
    explicit ViewerSettings(std::string file) : file_(std::move(file)) {}
    static std::string standardFile();

    struct Size {
        int width = 0;
        int height = 0;
        bool operator==(const Size&) const = default;
    };

    /// The size that the user has given the window on \p screen, a name of any form.
    std::optional<Size> size(const std::string& screen) const;
    void setSize(const std::string& screen, Size size) const;

    /// How much larger pages are shown than they are made.
    double zoom() const;
    void setZoom(double factor) const;

    static constexpr double minZoom = 0.3;
    static constexpr double maxZoom = 5;
    /// Points; no window is smaller or larger.
    static constexpr int minSide = 120;
    static constexpr int maxSide = 20'000;

private:
    std::string file_;
};

} // namespace quillmar
