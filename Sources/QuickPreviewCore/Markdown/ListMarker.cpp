#include "Markdown/ListMarker.h"

#include <algorithm>
#include <charconv>

namespace quillmar::Markdown {
namespace {

/// Of an ordered marker. More could be any number, a date, an account.
constexpr std::size_t maxDigits = 9;

/// Spaces behind a marker that are its padding. From one more on the content is indented code.
constexpr std::size_t maxPadding = 4;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Digits at the start of \p text, counted up to one more than a marker may have.
std::size_t digits(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && count <= maxDigits && isDigit(text[count])) ++count;
    return count;
}

} // namespace

std::optional<ListMarker> ListMarker::parse(const Line& line) {
    if (line.isIndentedAsCode() || line.indentation() == line.text().size()) return std::nullopt;
    const std::string_view text = line.text().substr(line.indentation());
    ListMarker marker;
    marker.indent = line.indentation();
    std::size_t width = 1;
    if (text[0] == '-' || text[0] == '*' || text[0] == '+') {
        marker.delimiter = text[0];
    } else {
        const std::size_t count = digits(text);
        if (count == 0 || count > maxDigits || count == text.size()) return std::nullopt;
        if (text[count] != '.' && text[count] != ')') return std::nullopt;
        marker.ordered = true;
        marker.delimiter = text[count];
        std::from_chars(text.data(), text.data() + count, marker.start);
        width = count + 1;
    }

    const std::string_view rest = text.substr(width);
    if (!rest.empty() && rest[0] != ' ') return std::nullopt;
    const std::size_t limit = std::min(rest.size(), maxPadding + 1);
    std::size_t spaces = 0;
    while (spaces < limit && rest[spaces] == ' ') ++spaces;
    const bool goesOn = spaces < rest.size();
    const std::size_t padding = goesOn && spaces >= 1 && spaces <= maxPadding ? spaces : 1;
    marker.contentIndent = marker.indent + width + padding;
    marker.content = rest.substr(std::min(rest.size(), padding));
    return marker;
}

} // namespace quillmar::Markdown
