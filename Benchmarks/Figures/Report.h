#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

using Row = std::vector<std::string>;

/// Tables in Markdown, aligned so that they read well in a terminal too.
class Report {
public:
    /// Only rows whose table or name contains \p filter are wanted.
    explicit Report(std::string filter) : filter_(std::move(filter)) {}

    /// Whether the row \p name of \p table is to be measured; says on standard error that it now is.
    bool wants(std::string_view table, std::string_view name) const;

    /// Prints what a table is about and its rows, the heading first; nothing without rows.
    static void print(std::string_view table, std::string_view about, const std::vector<Row>& rows);

private:
    std::string filter_;
};

/// "0.35", "12.3", "1234": three digits, more only before the point.
std::string threeDigits(double number);

} // namespace quillmar
