#include "Benchmarks/Samples.h"

#include <array>
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

std::string file(const std::string& name, const std::string& content) {
    const auto folder = std::filesystem::temp_directory_path() / "quillmar-benchmarks";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << content;
    return (folder / name).string();
}

} // namespace quillmar::Samples
