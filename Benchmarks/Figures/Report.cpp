#include "Benchmarks/Figures/Report.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace quillmar {
namespace {

/// Names of hostile documents are full of what Markdown would take for its own.
std::string escaped(std::string_view cell) {
    std::string text;
    for (const char c : cell) {
        if (std::string_view("\\|<>&*_`[]~").find(c) != std::string_view::npos) text += '\\';
        text += c;
    }
    return text;
}

} // namespace

bool Report::wants(std::string_view table, std::string_view name) const {
    if (table.find(filter_) == table.npos && name.find(filter_) == name.npos) return false;
    std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(table.size()), table.data(),
                 static_cast<int>(name.size()), name.data());
    return true;
}

void Report::print(std::string_view table, std::string_view about, const std::vector<Row>& rows) {
    if (rows.size() < 2) return;
    std::vector<Row> cells;
    std::vector<std::size_t> widths(rows.front().size(), 3);
    for (const Row& row : rows) {
        Row& line = cells.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i) {
            line.push_back(escaped(row[i]));
            widths[i] = std::max(widths[i], line.back().size());
        }
    }
    Row rule;
    for (std::size_t i = 0; i < widths.size(); ++i)
        rule.push_back(i == 0 ? std::string(widths[i], '-') : std::string(widths[i] - 1, '-').append(":"));
    cells.insert(cells.begin() + 1, rule);

    std::printf("\n## %.*s\n\n%.*s\n\n", static_cast<int>(table.size()), table.data(),
                static_cast<int>(about.size()), about.data());
    for (const Row& row : cells) {
        for (std::size_t i = 0; i < row.size(); ++i)
            std::printf(i == 0 ? "| %-*s " : "| %*s ", static_cast<int>(widths[i]), row[i].c_str());
        std::puts("|");
    }
    std::fflush(stdout);
}

std::string threeDigits(double number) {
    std::array<char, 32> text{};
    const int fraction = number < 10 ? 2 : number < 100 ? 1 : 0;
    std::snprintf(text.data(), text.size(), "%.*f", fraction, number);
    return text.data();
}

} // namespace quillmar
