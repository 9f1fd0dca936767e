#include "Platform/UTF8.h"

#include <cstdint>
#include <cstring>
#include <unicode/utf8.h>

namespace quillmar::UTF8 {
namespace {

// The macro of ICU's header converts between its own integer types without a word.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"

/// Moves \p position behind one code point or one maximal subpart, whose value is negative.
UChar32 next(std::string_view text, std::size_t& position) {
    UChar32 character = 0;
    U8_NEXT(text, position, text.size(), character);
    return character;
}

/// Moves \p position before one code point or one maximal subpart, whose value is negative.
UChar32 previous(std::string_view text, std::size_t& position) {
    constexpr std::size_t longest = 4; // bytes; ICU's positions have 32 bits, so it sees no more than these
    const std::size_t start = position < longest ? 0 : position - longest;
    const char* bytes = text.data() + start;
    auto end = static_cast<std::int32_t>(position - start);
    UChar32 character = 0;
    U8_PREV(bytes, 0, end, character);
    position = start + static_cast<std::size_t>(end);
    return character;
}

#pragma GCC diagnostic pop

/// Bytes of ASCII at the start of \p text, found a machine word at a time.
std::size_t asciiPrefix(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t i = 0;
    for (; text.size() - i >= sizeof(std::uint64_t); i += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, sizeof word);
        if ((word & highBits) != 0) break;
    }
    while (i < text.size() && isASCII(text[i])) ++i;
    return i;
}

} // namespace

CodePoint longCodePointAt(std::string_view text, std::size_t position) {
    std::size_t end = position;
    const UChar32 character = next(text, end);
    if (character < 0) return {.value = 0xFFFD, .length = end - position, .isWellFormed = false};
    return {.value = static_cast<char32_t>(character), .length = end - position, .isWellFormed = true};
}

CodePoint longCodePointBefore(std::string_view text, std::size_t position) {
    std::size_t start = position;
    const UChar32 character = previous(text, start);
    if (character < 0) return {.value = 0xFFFD, .length = position - start, .isWellFormed = false};
    return {.value = static_cast<char32_t>(character), .length = position - start, .isWellFormed = true};
}

void append(std::string& text, char32_t character) {
    constexpr unsigned bits = 6; // of a continuation byte
    const auto lead = [&](unsigned mark, unsigned continuations) {
        text += static_cast<char>(mark | character >> bits * continuations);
    };
    const auto continuation = [&](unsigned behind) {
        text += static_cast<char>(0x80U | (character >> bits * behind & 0x3FU));
    };
    if (character < 0x80) return lead(0, 0);
    if (character < 0x800) {
        lead(0xC0, 1);
    } else {
        if (character < 0x10000) {
            lead(0xE0, 2);
        } else {
            lead(0xF0, 3);
            continuation(2);
        }
        continuation(1);
    }
    continuation(0);
}

std::size_t validPrefix(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        i += asciiPrefix(text.substr(i));
        while (i < text.size() && !isASCII(text[i])) {
            std::size_t end = i;
            if (next(text, end) < 0) return i;
            i = end;
        }
    }
    return i;
}

bool isASCII(std::string_view text) { return asciiPrefix(text) == text.size(); }

} // namespace quillmar::UTF8
