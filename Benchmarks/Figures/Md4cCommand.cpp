// md4c as a command, which Debian does not package: reads the file that is named, writes HTML.

#include "Benchmarks/Figures/Md4c.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::error_code error;
    std::string markdown(std::filesystem::file_size(argv[1], error), '\0');
    std::FILE* const file = error ? nullptr : std::fopen(argv[1], "rb");
    if (file == nullptr) return 1;
    markdown.resize(std::fread(markdown.data(), 1, markdown.size(), file));
    std::fclose(file);
    const std::string html = quillmar::md4cHTML(markdown);
    return std::fwrite(html.data(), 1, html.size(), stdout) == html.size() ? 0 : 1;
}
