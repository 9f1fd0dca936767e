#include "Platform/NaturalOrder.h"

#include "Platform/ASCIISortKey.h"
#include "Platform/Locale.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <unicode/coll.h>
#include <unicode/uchar.h>

namespace quillmar {
namespace {

/// Bytes of a name that are compared; no file system stores longer names (APFS: 255 characters). Names that are
/// alike as far as that keep their order.
constexpr std::size_t maxComparedBytes = 1'024;

/// Combining marks in a row that are looked at; bringing them into canonical order takes the square of their
/// number. Text has no more (Unicode Standard Annex #15, "Stream-Safe Text Format").
constexpr int maxMarks = 30;

/// Bytes of a sort key that are kept. Letters need about one each, but some ligatures more than fifty.
constexpr std::int32_t maxKeyBytes = 4'096;

std::unique_ptr<icu::Collator> makeCollator(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale(locale.c_str()), status));
    if (U_FAILURE(status) != 0) return nullptr;
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    collator->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, status);
    collator->setAttribute(UCOL_STRENGTH, UCOL_TERTIARY, status);
    collator->setAttribute(UCOL_CASE_LEVEL, UCOL_ON, status);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    if (U_FAILURE(status) != 0) return nullptr;
    return collator;
}

/// The last one asked for stays open: an archive's tree has a list of names in every folder.
const std::unique_ptr<icu::Collator>& collatorFor(const std::string& locale) {
    thread_local std::string openLocale;
    thread_local std::unique_ptr<icu::Collator> collator;
    if (openLocale != locale) {
        collator = makeCollator(locale);
        openLocale = locale;
    }
    return collator;
}

bool isMark(UChar32 character) {
    constexpr UChar32 firstMark = 0x300;
    return character >= firstMark &&
           u_getIntPropertyValue(character, UCHAR_LEAD_CANONICAL_COMBINING_CLASS) != 0;
}

/// \p name as UTF-16, without the marks that are not looked at.
icu::UnicodeString comparedText(std::string_view name) {
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(name);
    const bool isASCII = static_cast<std::size_t>(text.length()) == name.size();
    if (isASCII || text.length() <= maxMarks) return text;

    icu::UnicodeString kept;
    int marks = 0; // in a row
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 character = text.char32At(i);
        marks = isMark(character) ? marks + 1 : 0;
        if (marks <= maxMarks) kept.append(character);
    }
    return kept;
}

/// A key whose bytes compare as \p name does.
std::string sortKey(const icu::Collator& collator, std::string_view name) {
    std::array<std::uint8_t, maxKeyBytes> buffer; // filled as far as it goes when the key is longer
    const int length = collator.getSortKey(comparedText(name), buffer.data(), maxKeyBytes);
    return {buffer.begin(), buffer.begin() + std::min(length, maxKeyBytes)};
}

/// Keys of \p names whose bytes compare as the names do in the user's locale.
std::vector<std::string> sortKeys(const std::vector<std::string_view>& names) {
    const std::string locale = currentLocale(LocaleCategory::collation);
    const auto isASCII = [](std::string_view name) { return UTF8::isASCII(name); };
    const bool needsCollator = locale != usEnglish || !std::ranges::all_of(names, isASCII);
    const icu::Collator* collator = needsCollator ? collatorFor(locale).get() : nullptr;

    std::vector<std::string> keys;
    keys.reserve(names.size());
    for (std::string_view name : names) {
        name = name.substr(0, maxComparedBytes);
        if (collator != nullptr)
            keys.push_back(sortKey(*collator, name));
        else
            keys.push_back(needsCollator ? std::string(name) : asciiSortKey(name));
    }
    return keys;
}

} // namespace

std::vector<std::size_t> naturalOrder(const std::vector<std::string_view>& names) {
    std::vector<std::size_t> order(names.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (names.size() < 2) return order;

    const std::vector<std::string> keys = sortKeys(names);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
}

} // namespace quillmar
