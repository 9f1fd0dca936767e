#include "Fuzz/FuzzTarget.h"
#include "Fuzz/Nesting.h"
#include "Markdown/FrontMatter.h"
#include "Markdown/Lines.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <string_view>

namespace quillmar {

void fuzz(DataView input) {
    const std::string text = Markdown::normalizedLines(decodedText(std::string(input)));
    const auto header = Markdown::frontMatter(text);
    if (!header) return;
    require(text.starts_with("---\n"));
    require(header->length <= text.size());
    require(header->length == text.size() || text[header->length - 1] == '\n');
    require(UTF8::validPrefix(header->html) == header->html.size());
    require(isBalanced(header->html));
    // What follows a header does not change it, and without its last line it is none.
    const std::string_view whole = std::string_view(text).substr(0, header->length);
    require(Markdown::frontMatter(whole)->html == header->html);
    const std::size_t lastLine = whole.find_last_of('\n', whole.size() - 2);
    require(!Markdown::frontMatter(whole.substr(0, lastLine)));
}

} // namespace quillmar
