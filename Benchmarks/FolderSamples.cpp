#include "Benchmarks/FolderSamples.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string_view>

namespace quillmar::FolderSamples {
namespace {

using Path = std::filesystem::path;

/// \p count files of different sizes, without any bytes on the disk.
void makeFiles(const Path& folder, int count) {
    constexpr std::array<std::string_view, 6> extensions{".txt", ".c", ".png", ".pdf", ".zip", ""};
    std::filesystem::create_directories(folder);
    for (int i = 0; i < count; ++i) {
        const Path file =
            folder / ("file-" + std::to_string(i) + std::string(extensions.at(i % extensions.size())));
        std::ofstream{file};
        std::filesystem::resize_file(file, static_cast<std::uintmax_t>(i) * 37 % 5'000);
    }
}

void makeWide(const Path& folder, int folders) {
    for (int i = 0; i < folders; ++i) makeFiles(folder / ("folder-" + std::to_string(i)), 1'000);
}

void makeNested(const Path& folder, int levels) {
    makeFiles(folder, 7);
    if (levels == 0) return;
    for (const auto* name : {"a", "b", "c"}) makeNested(folder / name, levels - 1);
}

void makeDeep(const Path& folder) { makeNested(folder / "one", 8); }

void makeMillion(const Path& folder) {
    for (int i = 0; i < 1'000; ++i)
        makeFiles(folder / std::to_string(i / 40) / ("folder-" + std::to_string(i)), 1'000);
}

std::string madeOnce(const std::string& name, const std::function<void(const Path&)>& make) {
    const Path path = std::filesystem::temp_directory_path() / "quillmar-benchmarks" / name;
    if (std::filesystem::exists(path)) return path.string();
    const Path unfinished = path.string() + ".unfinished"; // a run that is cut short leaves no half folder
    std::filesystem::remove_all(unfinished);
    make(unfinished);
    std::filesystem::rename(unfinished, path);
    return path.string();
}

} // namespace

std::string wide(int folders) {
    return madeOnce("wide-" + std::to_string(folders), [=](const Path& path) { makeWide(path, folders); });
}

std::string flat(int files) {
    return madeOnce("flat-" + std::to_string(files), [=](const Path& path) { makeFiles(path, files); });
}

std::string deep() { return madeOnce("deep", makeDeep); }

std::string million() { return madeOnce("million", makeMillion); }

} // namespace quillmar::FolderSamples
