#include "Archives/PaxRecords.h"

#include "Archives/SignedInteger.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"
#include "Support/SaturatingSum.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <system_error>

namespace quillmar {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The exponent of \p number, stopping at the limits of 64 bits; 0 when it has none.
std::int64_t exponent(std::string_view number) {
    const std::size_t mark = number.find_first_of("eE");
    if (mark == number.npos) return 0;
    const std::string_view digits = number.substr(mark + 1);
    if (const auto value = signedInteger(digits, 10)) return *value;
    return digits.starts_with('-') ? std::numeric_limits<std::int64_t>::min()
                                   : std::numeric_limits<std::int64_t>::max();
}

/// Whether \p number, which is not zero and fits no `double`, is too small for one rather than too large.
bool isTiny(std::string_view number) {
    const auto firstDigit = static_cast<std::int64_t>(number.find_first_of("123456789"));
    const auto point = static_cast<std::int64_t>(std::min(number.find_first_of(".eE"), number.size()));
    return saturatingSum(point - firstDigit, exponent(number)) < 0;
}

/// The whole of \p text as a number: sign, digits with an optional point, optional exponent. None when it is
/// no such number or not finite.
std::optional<double> decimalNumber(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    // The library would take a second sign, "inf" and "nan".
    if (text.empty() || (!isDigit(text.front()) && text.front() != '.')) return std::nullopt;
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (stop != end) return std::nullopt;
    const bool isZero = error == std::errc::result_out_of_range && isTiny(text);
    if (error != std::errc() && !isZero) return std::nullopt;
    return isNegative ? -value : value;
}

/// None outside 64 bits.
std::optional<Timestamp> wholeSeconds(double seconds) {
    constexpr double limit = 9'223'372'036'854'775'808.0; // 2^63, which a double holds exactly
    const double whole = std::floor(seconds);
    if (whole < -limit || whole >= limit) return std::nullopt;
    return static_cast<Timestamp>(whole);
}

std::optional<PaxRecords::Modified> modifiedTime(std::string_view text) {
    const auto seconds = decimalNumber(text);
    if (!seconds) return std::nullopt;
    return PaxRecords::Modified{wholeSeconds(*seconds)};
}

/// Bytes of \p data as text.
std::size_t repairedSize(DataView data) {
    if (UTF8::validPrefix(data) == data.size()) return data.size();
    return repairedText(Data(data)).size();
}

} // namespace

void PaxRecords::merge(DataView extendedHeader) {
    while (!extendedHeader.empty()) {
        const std::size_t lineLength = std::min(extendedHeader.find('\n'), extendedHeader.size());
        const DataView line = extendedHeader.substr(0, lineLength);
        extendedHeader.remove_prefix(std::min(lineLength + 1, extendedHeader.size()));
        const std::size_t space = line.find(' ');
        if (space == line.npos) continue;
        const DataView record = line.substr(space + 1);
        const std::size_t equals = record.find('=');
        if (equals == record.npos) continue;
        set(record.substr(0, equals), record.substr(equals + 1));
    }
}

void PaxRecords::set(DataView keyword, DataView value) {
    const auto [record, isNew] = valueBytes_.try_emplace(repairedText(Data(keyword)));
    auto& [name, valueBytes] = *record;
    if (isNew) byteCount_ += name.size();
    byteCount_ -= valueBytes;
    valueBytes = repairedSize(value);
    byteCount_ += valueBytes;
    if (keyword == "path") path_ = repairedText(Data(value));
    if (keyword == "size") size_ = signedInteger(value, 10);
    if (keyword == "mtime") modified_ = modifiedTime(value);
}

void PaxRecords::clear() { *this = {}; }

} // namespace quillmar
