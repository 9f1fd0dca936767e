#include "Markdown/HTMLBlock.h"

#include "Markdown/TextBoundaries.h"

namespace quillmar::Markdown {
namespace {

bool isASCIILetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isNameCharacter(char c) { return isASCIILetter(c) || (c >= '0' && c <= '9') || c == '-'; }

} // namespace

bool isHTMLBlock(const Line& line) {
    if (line.isIndentedAsCode() || line.first() != '<') return false;
    if (beginsComment(line)) return true;
    std::string_view text = line.content().substr(1);
    if (text.starts_with('/')) text.remove_prefix(1);
    if (text.empty() || !isASCIILetter(text[0])) return false;
    std::size_t i = 1;
    while (i < text.size() && isNameCharacter(text[i])) ++i;
    const std::string_view rest = text.substr(i);
    if (rest.empty() || rest[0] == '>' || rest.starts_with("/>")) return true;
    return whiteSpaceLengthAt(rest, 0) > 0;
}

} // namespace quillmar::Markdown
