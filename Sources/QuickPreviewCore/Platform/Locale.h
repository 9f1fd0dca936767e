#pragma once

#include <string>

namespace quillmar {

/// What a locale is asked for; each has its own environment variable.
enum class LocaleCategory {
    time,      ///< LC_TIME
    numeric,   ///< LC_NUMERIC
    collation, ///< LC_COLLATE
};

/// The user's locale as language, script and region ("de_DE", "sr_Latn_RS"): of LC_ALL, the category's variable
/// and LANG the first that is set and not empty. Nothing set, "C", "POSIX" and what is no locale's name mean US
/// English. Asked anew at each call; the result need not be a locale that anybody has data for.
std::string currentLocale(LocaleCategory category);

/// The default. Its texts are written without ICU, whose start costs more than a small preview.
inline constexpr const char* usEnglish = "en_US";

} // namespace quillmar
