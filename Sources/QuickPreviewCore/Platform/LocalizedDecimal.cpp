#include "Platform/LocalizedDecimal.h"

#include "Platform/Locale.h"

#include <unicode/numberformatter.h>

namespace quillmar {
namespace {

using icu::number::LocalizedNumberFormatter;

/// The last one asked for stays open: a page holds thousands of numbers in one locale.
const LocalizedNumberFormatter& formatterFor(const std::string& locale) {
    thread_local std::string openLocale;
    thread_local LocalizedNumberFormatter formatter;
    if (openLocale != locale) {
        formatter = icu::number::NumberFormatter::withLocale(icu::Locale(locale.c_str()));
        openLocale = locale;
    }
    return formatter;
}

} // namespace

std::optional<std::string> localizedDecimal(std::string_view number) {
    const std::string locale = currentLocale(LocaleCategory::numeric);
    if (locale == usEnglish) return {};

    UErrorCode status = U_ZERO_ERROR;
    const auto formatted = formatterFor(locale).formatDecimal(number, status);
    const icu::UnicodeString text = formatted.toTempString(status);
    if (U_FAILURE(status) != 0) return {};
    std::string result;
    return text.toUTF8String(result);
}

} // namespace quillmar
