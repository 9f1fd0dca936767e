#include "Platform/Text.h"

#include "Platform/UTF8.h"

#include <algorithm>
#include <cstdint>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <utility>
#include <vector>

namespace quillmar {
namespace {

constexpr std::string_view byteOrderMark = "\uFEFF";
constexpr std::string_view replacement = "\uFFFD";

/// \p text with every ill-formed sequence replaced. The first begins at \p start; all before it is well-formed.
std::string repaired(std::string_view text, std::size_t start) {
    std::string result;
    result.reserve(text.size());
    result.append(text.substr(0, start));
    while (start < text.size()) {
        result.append(replacement);
        start += UTF8::codePointAt(text, start).length;
        const std::size_t valid = UTF8::validPrefix(text.substr(start));
        result.append(text.substr(start, valid));
        start += valid;
    }
    return result;
}

struct ClassedCharacter {
    UChar32 value = 0;
    std::uint8_t combiningClass = 0; ///< 0: stays where it is
};

bool isStarter(const ClassedCharacter& character) { return character.combiningClass == 0; }

/// The characters of \p text, decomposed.
std::vector<ClassedCharacter> decomposed(const icu::Normalizer2& normalizer, std::string_view text) {
    std::vector<ClassedCharacter> characters;
    const auto append = [&](UChar32 value) {
        characters.push_back({.value = value, .combiningClass = u_getCombiningClass(value)});
    };
    icu::UnicodeString parts;
    for (std::size_t i = 0; i < text.size();) {
        const UTF8::CodePoint character = UTF8::codePointAt(text, i);
        i += character.length;
        const auto value = static_cast<UChar32>(character.value);
        if (!normalizer.getDecomposition(value, parts)) {
            append(value);
            continue;
        }
        for (std::int32_t k = 0; k < parts.length(); k = parts.moveIndex32(k, 1)) append(parts.char32At(k));
    }
    return characters;
}

/// \p text decomposed, its combining marks in canonical order (The Unicode Standard, 3.11).
icu::UnicodeString orderedText(const icu::Normalizer2& normalizer, std::string_view text) {
    auto characters = decomposed(normalizer, text);
    for (auto marks = characters.begin(); marks != characters.end();) {
        const auto end = std::find_if(marks, characters.end(), isStarter);
        std::ranges::stable_sort(marks, end, {}, &ClassedCharacter::combiningClass);
        marks = std::find_if_not(end, characters.end(), isStarter);
    }
    icu::UnicodeString ordered;
    for (const ClassedCharacter& character : characters) ordered.append(character.value);
    return ordered;
}

char lowercasedASCII(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The characters whose lower case is more than one character or depends on those around them, in no particular
/// language (SpecialCasing.txt): a capital I with a dot, and the capital sigma.
bool hasSpecialLowerCase(char32_t character) { return character == 0x0130 || character == 0x03A3; }

std::string lowercasedByContext(std::string_view text) {
    std::string lower;
    icu::StringByteSink<std::string> sink(&lower);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, text, sink, nullptr, status);
    return U_SUCCESS(status) ? lower : std::string(text);
}

} // namespace

std::string decodedText(Data data) {
    if (data.starts_with(byteOrderMark)) data.erase(0, byteOrderMark.size());
    return repairedText(std::move(data));
}

std::string repairedText(Data data) {
    const std::size_t valid = UTF8::validPrefix(data);
    if (valid < data.size()) return repaired(data, valid);
    return data;
}

std::string lowercased(std::string_view text) {
    std::string lower;
    lower.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (UTF8::isASCII(text[i])) {
            lower += lowercasedASCII(text[i++]);
            continue;
        }
        const UTF8::CodePoint character = UTF8::codePointAt(text, i);
        if (hasSpecialLowerCase(character.value)) return lowercasedByContext(text);
        const auto lowerCase = static_cast<char32_t>(u_tolower(static_cast<UChar32>(character.value)));
        if (lowerCase == character.value)
            lower.append(text, i, character.length);
        else
            UTF8::append(lower, lowerCase);
        i += character.length;
    }
    return lower;
}

std::string canonicalForm(std::string text) {
    // U+0300, which begins with 0xCC, is the first character that is not always itself.
    const auto isInert = [](char byte) { return static_cast<unsigned char>(byte) < 0xCC; };
    if (text.size() > maxCanonicalBytes || std::ranges::all_of(text, isInert)) return text;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) return text;
    std::string normalized;
    normalized.reserve(text.size());
    // ICU puts one mark after the other in its place, which takes the square of their number.
    constexpr std::size_t fewMarks = 128; // bytes
    if (text.size() > fewMarks) {
        nfc->normalize(orderedText(*nfc, text), status).toUTF8String(normalized);
        return U_SUCCESS(status) ? normalized : text;
    }
    icu::StringByteSink<std::string> sink(&normalized);
    nfc->normalizeUTF8(0, text, sink, nullptr, status);
    return U_SUCCESS(status) ? normalized : text;
}

} // namespace quillmar
