#include "Fuzz/FuzzTarget.h"
#include "Fuzz/Nesting.h"
#include "Pages/TextPage.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

namespace quillmar {

void fuzz(DataView input) {
    const std::string text = decodedText(std::string(input));
    require(UTF8::validPrefix(text) == text.size());
    const std::string page = TextPage::html(text, text, std::nullopt, {text}, text.size() % 2 == 0, text);
    require(UTF8::validPrefix(page) == page.size());
    require(isBalanced(page));
    require(TextPage::lineCount(text) >= 0);
    TextPage::language(text);
}

} // namespace quillmar
