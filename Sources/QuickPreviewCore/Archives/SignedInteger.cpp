#include "Archives/SignedInteger.h"

#include <charconv>
#include <system_error>

namespace quillmar {

std::optional<std::int64_t> signedInteger(std::string_view text, int base) {
    // The library knows a minus sign only, and would take the one in "+-1".
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

} // namespace quillmar
