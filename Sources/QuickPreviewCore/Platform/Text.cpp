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

/// \p text decomposed, its combining marks in canonical order (The Unicode Standard, 3.11).
icu::UnicodeString decomposedText(const icu::Normalizer2& normalizer, std::string_view text) {
    std::vector<UChar32> characters;
    const auto append = [&](const icu::UnicodeString& some) {
        for (std::int32_t i = 0; i < some.length(); i = some.moveIndex32(i, 1))
            characters.push_back(some.char32At(i));
    };
    const icu::UnicodeString whole = icu::UnicodeString::fromUTF8(text);
    icu::UnicodeString decomposition;
    for (std::int32_t i = 0; i < whole.length(); i = whole.moveIndex32(i, 1)) {
        const UChar32 character = whole.char32At(i);
        if (normalizer.getDecomposition(character, decomposition))
            append(decomposition);
        else
            characters.push_back(character);
    }

    // Looked up once for each: sorting asks again and again.
    std::vector<std::pair<std::uint8_t, UChar32>> classed;
    classed.reserve(characters.size());
    for (const UChar32 character : characters) classed.emplace_back(u_getCombiningClass(character), character);
    const auto isStarter = [](const auto& one) { return one.first == 0; };
    for (auto marks = classed.begin(); marks != classed.end();) {
        const auto end = std::find_if(marks, classed.end(), isStarter);
        std::stable_sort(marks, end, [](const auto& a, const auto& b) { return a.first < b.first; });
        marks = std::find_if_not(end, classed.end(), isStarter);
    }
    std::ranges::transform(classed, characters.begin(), [](const auto& one) { return one.second; });
    return icu::UnicodeString::fromUTF32(characters.data(), static_cast<std::int32_t>(characters.size()));
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
    if (UTF8::isASCII(text)) {
        lower = text;
        for (char& c : lower)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        return lower;
    }
    icu::StringByteSink<std::string> sink(&lower);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, text, sink, nullptr, status);
    return U_SUCCESS(status) ? lower : std::string(text);
}

std::string canonicalForm(std::string text) {
    if (text.size() > maxCanonicalBytes || UTF8::isASCII(text)) return text;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) return text;
    std::string normalized;
    normalized.reserve(text.size());
    // ICU puts one mark after the other in its place, which takes the square of their number.
    constexpr std::size_t fewMarks = 128; // bytes
    if (text.size() > fewMarks) {
        nfc->normalize(decomposedText(*nfc, text), status).toUTF8String(normalized);
        return U_SUCCESS(status) ? normalized : text;
    }
    icu::StringByteSink<std::string> sink(&normalized);
    nfc->normalizeUTF8(0, text, sink, nullptr, status);
    return U_SUCCESS(status) ? normalized : text;
}

} // namespace quillmar
