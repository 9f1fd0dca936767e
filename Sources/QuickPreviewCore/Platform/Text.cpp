#include "Platform/Text.h"

#include "Platform/UTF8.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <utility>

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
    icu::StringByteSink<std::string> sink(&normalized);
    nfc->normalizeUTF8(0, text, sink, nullptr, status);
    return U_SUCCESS(status) ? normalized : text;
}

} // namespace quillmar
