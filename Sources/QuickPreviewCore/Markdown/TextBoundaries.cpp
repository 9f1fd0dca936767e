#include "Markdown/TextBoundaries.h"

#include "Platform/CharacterClass.h"

namespace quillmar::Markdown {
namespace {

std::size_t whiteSpaceLengthBefore(std::string_view text, std::size_t end) {
    if (UTF8::isASCII(text[end - 1])) return isASCIIWhiteSpace(text[end - 1]) ? 1 : 0;
    const UTF8::CodePoint character = UTF8::codePointBefore(text, end);
    return CharacterClass::isWhiteSpace(character.value) ? character.length : 0;
}

} // namespace

std::size_t longWhiteSpaceLengthAt(std::string_view text, std::size_t position) {
    const UTF8::CodePoint character = UTF8::codePointAt(text, position);
    return CharacterClass::isWhiteSpace(character.value) ? character.length : 0;
}

std::size_t endOfWhiteSpace(std::string_view text, std::size_t position) {
    while (position < text.size()) {
        const std::size_t length = whiteSpaceLengthAt(text, position);
        if (length == 0) break;
        position += length;
    }
    return position;
}

std::size_t startOfWhiteSpace(std::string_view text, std::size_t first, std::size_t end) {
    while (end > first) {
        const std::size_t length = whiteSpaceLengthBefore(text, end);
        if (length == 0) break;
        end -= length;
    }
    return end;
}

bool isWordEnd(std::string_view text, std::size_t end) {
    if (end >= text.size()) return true;
    const char32_t next = UTF8::codePointAt(text, end).value;
    return !CharacterClass::isWordCharacter(next) && !CharacterClass::isIgnoredByWordBoundary(next);
}

bool isWordStart(std::string_view text, std::size_t start) {
    while (start > 0) {
        const UTF8::CodePoint previous = UTF8::codePointBefore(text, start);
        if (!CharacterClass::isIgnoredByWordBoundary(previous.value))
            return !CharacterClass::isWordCharacter(previous.value);
        start -= previous.length;
    }
    return true;
}

} // namespace quillmar::Markdown
