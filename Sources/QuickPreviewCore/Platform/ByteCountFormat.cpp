#include "Platform/ByteCountFormat.h"

#include "Platform/LocalizedDecimal.h"

#include <algorithm>
#include <array>
#include <limits>

namespace quillmar {
namespace {

struct Unit {
    const char* name;
    std::uint64_t largest;      ///< bytes; one more would be rounded up to a thousand of this unit
    std::uint64_t lastDigit;    ///< bytes that one step of the last digit stands for
    std::size_t fractionDigits; ///< before zeros at the end are dropped
};

constexpr std::array units{
    Unit{"KB", 999'499, 1'000, 0},
    Unit{"MB", 999'949'999, 100'000, 1},
    Unit{"GB", 999'994'999'999, 10'000'000, 2},
    Unit{"TB", 999'994'999'999'999, 10'000'000'000, 2},
    Unit{"PB", 999'994'999'999'999'999, 10'000'000'000'000, 2},
    Unit{"EB", std::numeric_limits<std::uint64_t>::max(), 10'000'000'000'000'000, 2},
};

/// Half to even: a remainder of exactly one half makes the quotient even.
constexpr std::uint64_t roundedQuotient(std::uint64_t dividend, std::uint64_t divisor) {
    const std::uint64_t quotient = dividend / divisor;
    const std::uint64_t rest = dividend % divisor;
    const std::uint64_t missing = divisor - rest;
    const bool roundsUp = rest > missing || (rest == missing && quotient % 2 != 0);
    return roundsUp ? quotient + 1 : quotient;
}

/// \p magnitude in \p unit, with a point: "2", "1.2", "9.22".
std::string numberIn(const Unit& unit, std::uint64_t magnitude) {
    std::string number = std::to_string(roundedQuotient(magnitude, unit.lastDigit));
    if (unit.fractionDigits == 0) return number;
    // At least "100" for two digits: what is less than one of this unit was shown in the one before.
    number.insert(number.size() - unit.fractionDigits, 1, '.');
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.pop_back();
    return number;
}

} // namespace

std::string formattedSize(std::int64_t bytes) {
    if (bytes == 0) return "Zero KB";

    // Negated as unsigned: the smallest value has no positive counterpart.
    const auto bits = static_cast<std::uint64_t>(bytes);
    const std::uint64_t magnitude = bytes < 0 ? 0 - bits : bits;

    std::string number;
    std::string name;
    if (magnitude < 1'000) {
        number = std::to_string(magnitude);
        name = magnitude == 1 ? "byte" : "bytes";
    } else {
        const auto* unit = std::find_if(units.begin(), units.end(),
                                        [&](const Unit& candidate) { return magnitude <= candidate.largest; });
        number = numberIn(*unit, magnitude);
        name = unit->name;
    }
    if (bytes < 0) number.insert(0, 1, '-');
    return localizedDecimal(number).value_or(number) + ' ' + name;
}

} // namespace quillmar
