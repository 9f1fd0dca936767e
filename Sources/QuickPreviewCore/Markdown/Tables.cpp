#include "Markdown/Tables.h"

#include "Markdown/Lines.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <array>

namespace quillmar::Markdown {
namespace {

constexpr std::string_view escapedPipe = "\\|";

/// Hands out the cells of a row one by one. Every row has a cell.
class CellReader {
public:
    explicit CellReader(std::string_view line) : rest_(trimmed(line)) {
        if (rest_.starts_with('|')) rest_.remove_prefix(1);
        if (rest_.ends_with('|') && !rest_.ends_with(escapedPipe)) rest_.remove_suffix(1);
    }

    bool atEnd() const { return atEnd_; }

    /// Trimmed. Not to be called at the end.
    std::string_view next() {
        const std::size_t end = cellLength();
        const std::string_view cell = rest_.substr(0, end);
        atEnd_ = end == rest_.size();
        rest_.remove_prefix(atEnd_ ? end : end + 1);
        return trimmed(cell);
    }

private:
    /// Bytes before the first pipe that is neither escaped nor in code.
    std::size_t cellLength() const {
        bool isInCode = false;
        for (std::size_t i = 0; i < rest_.size(); ++i) {
            if (rest_[i] == '`') isInCode = !isInCode;
            const bool isEscaped = i > 0 && rest_[i - 1] == '\\';
            if (rest_[i] == '|' && !isEscaped && !isInCode) return i;
        }
        return rest_.size();
    }

    std::string_view rest_;
    bool atEnd_ = false;
};

/// Of a cell that ^:?-+:?$ matches. "$" also matches in front of one line terminator at the end.
std::optional<Alignment> alignment(std::string_view cell) {
    const bool beginsWithColon = cell.starts_with(':');
    const bool endsWithColon = cell.ends_with(':');
    std::string_view hyphens = cell;
    if (hyphens.empty()) return std::nullopt;
    if (hyphens.back() != '-' && !endsWithColon) {
        const UTF8::CodePoint last = UTF8::codePointBefore(hyphens, hyphens.size());
        if (isLineTerminator(last.value)) hyphens.remove_suffix(last.length);
    }
    if (beginsWithColon) hyphens.remove_prefix(1);
    if (hyphens.ends_with(':')) hyphens.remove_suffix(1);
    if (hyphens.empty() || hyphens.find_first_not_of('-') != hyphens.npos) return std::nullopt;
    if (beginsWithColon) return endsWithColon ? Alignment::center : Alignment::left;
    return endsWithColon ? Alignment::right : Alignment::none;
}

bool holdsHyphen(std::string_view line) { return line.find('-') != line.npos; }

/// The tags of one kind of cell.
struct CellTags {
    std::array<std::string_view, 4> opening; ///< by alignment
    std::string_view closing;
};

constexpr CellTags headerTags{.opening = {"<th>", "<th style=\"text-align:left\">",
                                          "<th style=\"text-align:center\">",
                                          "<th style=\"text-align:right\">"},
                              .closing = "</th>"};
constexpr CellTags bodyTags{.opening = {"<td>", "<td style=\"text-align:left\">",
                                        "<td style=\"text-align:center\">", "<td style=\"text-align:right\">"},
                            .closing = "</td>"};

/// Writes the rows of one table.
class RowWriter {
public:
    RowWriter(std::string& html, Inlines& inlines, SharedByTables& shared)
        : html_(html), inlines_(inlines), shared_(shared) {}

    void append(std::string_view line, const CellTags& tags) {
        html_.append("<tr>");
        CellReader cells(line);
        std::size_t column = 0;
        for (; column < columns() && !cells.atEnd(); ++column) {
            appendOpening(column, tags);
            appendContent(cells.next());
            html_.append(tags.closing);
        }
        appendPadding(column, tags);
        html_.append("</tr>\n");
    }

private:
    void appendOpening(std::size_t column, const CellTags& tags) {
        html_.append(tags.opening.at(static_cast<std::size_t>(shared_.alignments[column])));
    }

    void appendContent(std::string_view cell) {
        if (cell.find(escapedPipe) == cell.npos) return inlines_.append(html_, cell);
        inlines_.append(html_, cellText(cell));
    }

    /// Appends the empty cells from \p column on, if the document may have that many.
    void appendPadding(std::size_t column, const CellTags& tags) {
        const std::size_t missing = columns() - column;
        if (missing > shared_.paddingCells) return;
        shared_.paddingCells -= missing;
        for (; column < columns(); ++column) {
            appendOpening(column, tags);
            html_.append(tags.closing);
        }
    }

    std::size_t columns() const { return shared_.alignments.size(); }

    std::string& html_;
    Inlines& inlines_;
    SharedByTables& shared_;
};

/// Fills \p alignments from a line like "| --- | :-: |", or returns false.
bool readAlignments(std::string_view line, std::vector<Alignment>& alignments) {
    alignments.clear();
    CellReader cells(line);
    while (!cells.atEnd()) {
        const std::optional<Alignment> found = alignment(cells.next());
        if (!found) return false;
        alignments.push_back(*found);
    }
    return true;
}

} // namespace

std::vector<std::string_view> cells(std::string_view line) {
    std::vector<std::string_view> row;
    CellReader reader(line);
    while (!reader.atEnd()) row.push_back(reader.next());
    return row;
}

std::string cellText(std::string_view cell) {
    std::string text;
    text.reserve(cell.size());
    for (std::size_t pipe = cell.find(escapedPipe); pipe != cell.npos; pipe = cell.find(escapedPipe)) {
        text.append(cell.substr(0, pipe)).append("|");
        cell.remove_prefix(pipe + escapedPipe.size());
    }
    return text.append(cell);
}

std::optional<std::vector<Alignment>> tableDelimiter(std::string_view line) {
    if (!holdsHyphen(line)) return std::nullopt;
    std::vector<Alignment> alignments;
    if (!readAlignments(line, alignments)) return std::nullopt;
    return alignments;
}

bool beginsTable(std::string_view line, std::string_view next) {
    if (line.find('|') == line.npos || !holdsHyphen(next)) return false;
    CellReader cells(line);
    CellReader delimiters(next);
    while (!delimiters.atEnd()) {
        if (!alignment(delimiters.next()) || cells.atEnd()) return false;
        cells.next();
    }
    return cells.atEnd();
}

void appendTable(std::string& html, std::string_view text, Inlines& inlines, SharedByTables& shared) {
    LineReader lines(text);
    const std::string_view header = lines.next();
    const std::string_view delimiter = lines.atEnd() ? std::string_view() : lines.next();
    if (!readAlignments(delimiter, shared.alignments)) shared.alignments.clear();
    RowWriter rows(html, inlines, shared);
    html.append("<table>\n<thead>\n");
    rows.append(header, headerTags);
    html.append("</thead>\n<tbody>\n");
    while (!lines.atEnd()) rows.append(lines.next(), bodyTags);
    html.append("</tbody>\n</table>\n");
}

} // namespace quillmar::Markdown
