#include "Markdown/Interruption.h"

#include "Markdown/BlockQuote.h"
#include "Markdown/Fence.h"
#include "Markdown/HTMLBlock.h"
#include "Markdown/Headings.h"
#include "Markdown/ListMarker.h"

#include <array>
#include <string_view>

namespace quillmar::Markdown {
namespace {

/// By the first byte. White space that trimming keeps, ASCII or not, may stand before a thematic break.
constexpr auto mayBegin = [] {
    std::array<bool, 256> table{};
    for (std::size_t byte = 0; byte < ' '; ++byte) table[byte] = true;
    for (std::size_t byte = 0x80; byte < table.size(); ++byte) table[byte] = true;
    for (const char c : std::string_view("`~#-*_+><0123456789")) table[static_cast<unsigned char>(c)] = true;
    return table;
}();

/// An empty item, or a number in the middle of a list, is more likely text.
bool beginsInterruptingItem(const Line& line) {
    const auto marker = ListMarker::parse(line);
    return marker && !Line(marker->content).isBlank() && (!marker->ordered || marker->start == 1);
}

} // namespace

bool mayBeginBlock(const Line& line) { return mayBegin[static_cast<unsigned char>(line.first())]; }

bool interrupts(const Line& line, ThematicBreaks& breaks) {
    if (line.isIndentedAsCode() || !mayBeginBlock(line)) return false;
    return Fence::parse(line.text()) || ATXHeading::parse(line) || breaks.isThematicBreak(line) ||
           beginsQuote(line) || isHTMLBlock(line) || beginsInterruptingItem(line);
}

} // namespace quillmar::Markdown
