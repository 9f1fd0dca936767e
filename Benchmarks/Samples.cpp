#include "Benchmarks/Samples.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quillmar::Samples {
namespace {

constexpr std::array lines{
    "#include <vector>",
    "",
    "/// The sum of what is left in the bed after the frost.",
    "template <typename Plant>",
    "std::optional<double> remaining(const std::vector<Plant>& bed, double threshold) {",
    "    if (bed.empty() || threshold < 0) return std::nullopt;",
    "    double sum = 0;",
    "    for (const auto& plant : bed) {",
    "        if (plant.height() >= threshold && !plant.name().starts_with(\"weed\")) sum += plant.height();",
    "        log(\"%s: %.1f cm\\n\", plant.name().c_str(), plant.height()); // it's still early",
    "    }",
    "    return sum;",
    "}",
};

} // namespace

std::string sourceCode(std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; text.size() < bytes; ++i) text.append(lines[i % lines.size()]).append("\n");
    text.resize(bytes);
    return text;
}

namespace {

std::filesystem::path folder() {
    const auto folder = std::filesystem::temp_directory_path() / "quillmar-benchmarks";
    std::filesystem::create_directories(folder);
    return folder;
}

void write(const std::filesystem::path& path, const std::string& content) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

/// Lines of words that repeat as words do: a few of them often, most of them rarely. Compresses about as well
/// as source code and logs.
std::string prose(std::size_t bytes, std::uint64_t seed) {
    constexpr std::string_view syllables =
        "beanspeasrootleafvinestemsoilrainfrostdewhoesaplingmulchbudthornmoss";
    constexpr std::uint64_t vocabulary = 4'096;
    std::uint64_t state = seed * 2 + 1;
    const auto random = [&state] {
        state = state * 6'364'136'223'846'793'005U + 1'442'695'040'888'963'407U;
        return state >> 33;
    };
    std::string text;
    text.reserve(bytes + 64);
    while (text.size() < bytes) {
        const std::uint64_t word = random() % vocabulary * (random() % vocabulary) / vocabulary;
        text.append(syllables.substr(word * 7 % 60, 2 + word % 6))
            .append(syllables.substr(word * 13 % 61, 1 + word % 5));
        text += random() % 11 == 0 ? '\n' : ' ';
    }
    text.resize(bytes);
    return text;
}

/// 200 folders of 100 files of 15 KB.
void makeTree(const std::filesystem::path& root) {
    for (std::size_t i = 0; i < 20'000; ++i)
        write(root / ("bed-" + std::to_string(i / 100)) / ("plant-" + std::to_string(i) + ".cpp"),
              prose(15'000, i));
}

void makeLargeFiles(const std::filesystem::path& root) {
    for (std::size_t i = 0; i < 10; ++i)
        write(root / ("harvest-" + std::to_string(i) + ".log"), prose(100'000'000, i));
}

struct Recipe {
    const char* archive;
    void (*makeFiles)(const std::filesystem::path& root);
    const char* folder;
    const char* command; ///< run in the benchmarks' folder
};

constexpr std::array recipes{
    Recipe{"tree.zip", makeTree, "tree", "zip -q -r tree.zip tree"},
    Recipe{"tree.tar", makeTree, "tree", "tar -cf tree.tar tree"},
    Recipe{"tree.tar.gz", makeTree, "tree", "tar -czf tree.tar.gz tree"},
    Recipe{"tree-blocks.tar.xz", makeTree, "tree",
           "tar -cf - tree/bed-? tree/bed-1? | xz -1 -T2 --block-size=2MiB > tree-blocks.tar.xz"},
    Recipe{"tree-one-block.tar.xz", makeTree, "tree",
           "tar -cf - tree/bed-? tree/bed-1? | xz -1 -T1 > tree-one-block.tar.xz"},
    Recipe{"large.tar.gz", makeLargeFiles, "large", "tar -czf large.tar.gz large"},
};

} // namespace

std::string file(const std::string& name, const std::string& content) {
    write(folder() / name, content);
    return (folder() / name).string();
}

std::string archive(const std::string& name) {
    const auto path = folder() / name;
    if (std::filesystem::exists(path)) return path.string();
    for (const auto& recipe : recipes) {
        if (name != recipe.archive) continue;
        if (!std::filesystem::exists(folder() / recipe.folder)) recipe.makeFiles(folder() / recipe.folder);
        const std::string command = "cd '" + folder().string() + "' && " + recipe.command;
        if (std::system(command.c_str()) != 0) std::filesystem::remove(path);
    }
    return path.string();
}

} // namespace quillmar::Samples
