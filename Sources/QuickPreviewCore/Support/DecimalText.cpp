#include "Support/DecimalText.h"

#include <array>
#include <charconv>

namespace quillmar {

std::string decimalText(double value, int digits) {
    // The largest finite value has 309 digits before the point.
    std::array<char, 400> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, digits);
    return error == std::errc() ? std::string(text.data(), end) : std::string();
}

} // namespace quillmar
