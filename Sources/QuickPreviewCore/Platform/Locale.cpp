#include "Platform/Locale.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace quillmar {
namespace {

const char* variableOf(LocaleCategory category) {
    switch (category) {
    case LocaleCategory::time: return "LC_TIME";
    case LocaleCategory::numeric: return "LC_NUMERIC";
    case LocaleCategory::collation: return "LC_COLLATE";
    }
    return "LANG";
}

/// What the environment says, in the order of POSIX.1, "Internationalization Variables"; empty if nothing.
std::string_view environmentValue(LocaleCategory category) {
    for (const char* variable : {"LC_ALL", variableOf(category), "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

// Of ASCII only: the C library's functions follow the very settings that are read here.
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isLetters(std::string_view text) { return std::all_of(text.begin(), text.end(), isLetter); }
bool isDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), isDigit); }

/// ISO 639: two or three letters.
bool isLanguage(std::string_view part) { return (part.size() == 2 || part.size() == 3) && isLetters(part); }
/// ISO 15924: four letters.
bool isScript(std::string_view part) { return part.size() == 4 && isLetters(part); }
/// ISO 3166-1: two letters; UN M.49: three digits.
bool isRegion(std::string_view part) {
    return (part.size() == 2 && isLetters(part)) || (part.size() == 3 && isDigits(part));
}

std::string_view scriptOfModifier(std::string_view modifier) {
    if (modifier == "latin") return "Latn";
    if (modifier == "cyrillic") return "Cyrl";
    return {};
}

/// Cuts \p text at the first of \p separators; returns what stands before and leaves what stands behind.
std::string_view cutBefore(std::string_view& text, std::string_view separators) {
    const std::size_t end = std::min(text.find_first_of(separators), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

} // namespace

std::string currentLocale(LocaleCategory category) {
    // language[_region][.encoding][@modifier]: POSIX.1, "Internationalization Variables"
    std::string_view name = environmentValue(category);
    std::string_view modifier = name;
    cutBefore(modifier, "@");
    name = cutBefore(name, ".@");

    // "C", "POSIX" and nothing are no language codes, like everything that no locale is called.
    const std::string_view language = cutBefore(name, "_-");
    if (!isLanguage(language)) return usEnglish;

    std::string_view script = scriptOfModifier(modifier);
    std::string_view region;
    while (!name.empty()) {
        const std::string_view part = cutBefore(name, "_-");
        if (script.empty() && isScript(part)) script = part;
        if (region.empty() && isRegion(part)) region = part;
    }

    std::string locale;
    for (const char c : language) locale += lower(c);
    if (!script.empty()) {
        locale += '_';
        locale += upper(script[0]);
        for (const char c : script.substr(1)) locale += lower(c);
    }
    if (!region.empty()) {
        locale += '_';
        for (const char c : region) locale += upper(c);
    }
    return locale;
}

} // namespace quillmar
