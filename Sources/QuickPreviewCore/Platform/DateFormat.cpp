#include "Platform/DateFormat.h"

#include "Platform/LocalZone.h"
#include "Platform/Locale.h"

#include <array>
#include <ctime>
#include <memory>
#include <string_view>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>

namespace quillmar {
namespace {

constexpr int yearZero = 1900; ///< of tm_year

/// The local day and minute; none outside the years 1 to 9999.
std::optional<std::tm> localFields(Timestamp time) {
    updateLocalZone();
    const std::time_t seconds = time;
    std::tm fields{};
    if (localtime_r(&seconds, &fields) == nullptr) return {};
    if (fields.tm_year < 1 - yearZero || fields.tm_year > 9999 - yearZero) return {};
    return fields;
}

/// "Mar 4, 2024 at 9:15 AM", with a narrow no-break space before the last word.
std::string usEnglishText(const std::tm& fields) {
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const int hour = fields.tm_hour % 12 == 0 ? 12 : fields.tm_hour % 12;

    std::string text = months[static_cast<std::size_t>(fields.tm_mon)];
    text += ' ';
    text += std::to_string(fields.tm_mday);
    text += ", ";
    text += std::to_string(fields.tm_year + yearZero);
    text += " at ";
    text += std::to_string(hour);
    text += fields.tm_min < 10 ? ":0" : ":";
    text += std::to_string(fields.tm_min);
    text += fields.tm_hour < 12 ? "\u202FAM" : "\u202FPM";
    return text;
}

/// Writes dates in one locale. Both are null if the locale's data is not to be had.
struct LocalizedFormat {
    std::unique_ptr<icu::SimpleDateFormat> format;
    std::unique_ptr<icu::GregorianCalendar> calendar;
};

LocalizedFormat makeFormat(const std::string& localeName) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale((localeName + "@calendar=gregorian").c_str());
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status) != 0) return {};

    // English and French join a date and a time by a word; the generator's own glue may be a comma.
    const std::string_view language = locale.getLanguage();
    if (language == "en") generator->setDateTimeFormat(UDAT_MEDIUM, u"{1} 'at' {0}", status);
    if (language == "fr") generator->setDateTimeFormat(UDAT_MEDIUM, u"{1} '\u00E0' {0}", status);
    const icu::UnicodeString pattern = generator->getBestPattern(u"yMMMdjmm", status);
    auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);

    // The fields are local already, so no zone is to move them; and no year is to be a Julian one.
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), locale, status);
    constexpr UDate beforeYearOne = -1e14; // milliseconds since 1970
    calendar->setGregorianChange(beforeYearOne, status);
    if (U_FAILURE(status) != 0) return {};
    return {std::move(format), std::move(calendar)};
}

/// The last one asked for stays open: a page holds thousands of dates in one locale.
LocalizedFormat& formatFor(const std::string& locale) {
    thread_local std::string openLocale;
    thread_local LocalizedFormat format;
    if (openLocale != locale) {
        format = makeFormat(locale);
        openLocale = locale;
    }
    return format;
}

std::optional<std::string> localizedText(const std::tm& fields, const std::string& locale) {
    const auto& [format, calendar] = formatFor(locale);
    if (!format) return {};
    calendar->clear();
    calendar->set(fields.tm_year + yearZero, fields.tm_mon, fields.tm_mday, fields.tm_hour, fields.tm_min);
    icu::UnicodeString text;
    icu::FieldPosition unused(icu::FieldPosition::DONT_CARE);
    format->format(*calendar, text, unused);
    std::string result;
    return text.toUTF8String(result);
}

} // namespace

std::optional<std::string> formattedDate(Timestamp time) {
    const auto fields = localFields(time);
    if (!fields) return {};
    const std::string locale = currentLocale(LocaleCategory::time);
    if (locale != usEnglish) {
        if (auto text = localizedText(*fields, locale)) return text;
    }
    return usEnglishText(*fields);
}

} // namespace quillmar
