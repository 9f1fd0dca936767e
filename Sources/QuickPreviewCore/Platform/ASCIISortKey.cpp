#include "Platform/ASCIISortKey.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace quillmar {
namespace {

/// The characters that are neither digits nor letters, in the order of the Unicode collation algorithm's root
/// (CLDR). Those that are missing, controls, count for nothing.
constexpr std::string_view symbols = "\t\n\v\f\r _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$";

constexpr char endOfWeights = 0; // below every weight: the shorter name comes first
constexpr char digitsWeight = static_cast<char>(symbols.size() + 1);
constexpr char lowerCase = 1;
constexpr char upperCase = 2;

/// Digits that are compared as one number, as the collator does it; the rest makes further numbers.
constexpr std::size_t maxDigits = 254;

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }
bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }

/// Weights by character; 0 for those that count for nothing.
constexpr auto weights = [] {
    std::array<char, 128> table{};
    for (std::size_t i = 0; i < symbols.size(); ++i)
        table[static_cast<unsigned char>(symbols[i])] = static_cast<char>(i + 1);
    for (char i = 0; i < 26; ++i) {
        const char weight = static_cast<char>(digitsWeight + 1 + i);
        table[static_cast<unsigned char>('a' + i)] = weight;
        table[static_cast<unsigned char>('A' + i)] = weight;
    }
    return table;
}();

/// Appends numbers as their number of digits and the digits, and so by value.
void appendNumbers(std::string& key, std::string_view digits) {
    while (!digits.empty()) {
        digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size() - 1));
        const std::string_view number = digits.substr(0, maxDigits);
        key += digitsWeight;
        key += static_cast<char>(number.size());
        key += number;
        digits.remove_prefix(number.size());
    }
}

} // namespace

std::string asciiSortKey(std::string_view name) {
    std::string key;
    key.reserve(name.size() * 2 + 8);
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t start = i;
        while (i < name.size() && isDigit(name[i])) ++i;
        if (i > start) {
            appendNumbers(key, name.substr(start, i - start));
            continue;
        }
        const char weight = weights[static_cast<unsigned char>(name[i])];
        if (weight != 0) key += weight;
        ++i;
    }
    key += endOfWeights;
    for (const char c : name)
        if (isLower(c) || isUpper(c)) key += isLower(c) ? lowerCase : upperCase;
    return key;
}

} // namespace quillmar
