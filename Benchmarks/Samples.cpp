#include "Benchmarks/Samples.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

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

/// 600 folders of 100 small files.
void makeManyFiles(const std::filesystem::path& root) {
    for (std::size_t i = 0; i < 60'000; ++i)
        write(root / ("bed-" + std::to_string(i / 100)) / ("plant-" + std::to_string(i) + ".txt"),
              prose(100, i));
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
    Recipe{"many.zip", makeManyFiles, "many", "zip -q -r many.zip many"},
    Recipe{"large.tar.gz", makeLargeFiles, "large", "tar -czf large.tar.gz large"},
};

/// The path of \p archive, which \p command makes of \p source in the benchmarks' folder if it is not yet
/// there.
std::string madeOnce(const std::string& archive, const char* source,
                     void (*makeFiles)(const std::filesystem::path& root), const std::string& command) {
    const auto path = folder() / archive;
    if (std::filesystem::exists(path)) return path.string();
    if (!std::filesystem::exists(folder() / source)) makeFiles(folder() / source);
    const std::string whole = "cd '" + folder().string() + "' && " + command;
    if (std::system(whole.c_str()) != 0) std::filesystem::remove(path);
    return path.string();
}

/// How a list of files becomes an archive.
struct Packer {
    std::string_view extension;
    const char* command; ///< the archive's name is written behind it
};

constexpr std::array packers{
    Packer{".zip", "zip -q -@ "},
    Packer{".tar", "tar -T - -cf "},
    Packer{".tar.gz", "tar -T - -czf "},
    Packer{".tar.xz", "tar -T - -cf - | xz -1 -T2 --block-size=2MiB > "},
};

} // namespace

std::string file(const std::string& name, const std::string& content) {
    write(folder() / name, content);
    return (folder() / name).string();
}

std::string archive(const std::string& name) {
    for (const auto& recipe : recipes)
        if (name == recipe.archive) return madeOnce(name, recipe.folder, recipe.makeFiles, recipe.command);
    throw std::logic_error("no archive " + name);
}

std::string treeArchive(std::size_t files, const std::string& extension) {
    const std::string name = "tree-" + std::to_string(files) + extension;
    for (const auto& packer : packers) {
        if (extension != packer.extension) continue;
        const std::string list = "find tree -type f | sort | head -n " + std::to_string(files) + " | ";
        return madeOnce(name, "tree", makeTree, list + packer.command + name);
    }
    throw std::logic_error("no archives of type " + extension);
}

} // namespace quillmar::Samples
