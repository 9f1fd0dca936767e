#include "QuillmarViewer/ViewerSettings.h"

#include "QuillmarViewer/GObjectPointer.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillmar {
namespace {

constexpr const char* sizeGroup = "window size";
constexpr const char* viewGroup = "view";
constexpr const char* zoomKey = "zoom";

/// Keys hold neither brackets nor "=".
std::string keyOf(std::string screen) {
    std::ranges::replace_if(
        screen, [](char c) { return c == '=' || c == '[' || c == ']' || c <= ' '; }, '_');
    return screen.empty() ? "screen" : screen;
}

class KeyFile {
public:
    explicit KeyFile(const std::string& path) : path_(path) {
        g_key_file_load_from_file(file_, path.c_str(), G_KEY_FILE_NONE, nullptr);
    }
    ~KeyFile() { g_key_file_unref(file_); }
    KeyFile(const KeyFile&) = delete;
    KeyFile& operator=(const KeyFile&) = delete;

    GKeyFile* get() const { return file_; }

    void save() const {
        const GString8 folder(g_path_get_dirname(path_.c_str()));
        constexpr int ownerOnly = 0700;
        g_mkdir_with_parents(folder.get(), ownerOnly);
        g_key_file_save_to_file(file_, path_.c_str(), nullptr);
    }

private:
    std::string path_;
    GKeyFile* file_ = g_key_file_new();
};

bool isSide(int side) { return side >= ViewerSettings::minSide && side <= ViewerSettings::maxSide; }

} // namespace

std::string ViewerSettings::standardFile() {
    const GString8 file(g_build_filename(g_get_user_state_dir(), "quillmar", "viewer.ini", nullptr));
    return file.get();
}

std::optional<ViewerSettings::Size> ViewerSettings::size(const std::string& screen) const {
    const KeyFile file(file_);
    gsize count = 0;
    const std::unique_ptr<int, Free> sides(
        g_key_file_get_integer_list(file.get(), sizeGroup, keyOf(screen).c_str(), &count, nullptr));
    if (!sides || count != 2 || !isSide(sides.get()[0]) || !isSide(sides.get()[1])) return std::nullopt;
    return Size{.width = sides.get()[0], .height = sides.get()[1]};
}

void ViewerSettings::setSize(const std::string& screen, Size size) const {
    const KeyFile file(file_);
    std::array<int, 2> sides{size.width, size.height}; // the library takes them unconst
    g_key_file_set_integer_list(file.get(), sizeGroup, keyOf(screen).c_str(), sides.data(), sides.size());
    file.save();
}

double ViewerSettings::zoom() const {
    const KeyFile file(file_);
    const double factor = g_key_file_get_double(file.get(), viewGroup, zoomKey, nullptr);
    if (!std::isfinite(factor) || factor < minZoom || factor > maxZoom) return 1;
    return factor;
}

void ViewerSettings::setZoom(double factor) const {
    const KeyFile file(file_);
    g_key_file_set_double(file.get(), viewGroup, zoomKey, std::clamp(factor, minZoom, maxZoom));
    file.save();
}

} // namespace quillmar
