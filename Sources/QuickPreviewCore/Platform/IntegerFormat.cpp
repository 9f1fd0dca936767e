#include "Platform/IntegerFormat.h"

#include "Platform/LocalizedDecimal.h"

namespace quillmar {

std::string formattedInteger(std::int64_t value) {
    std::string text = std::to_string(value);
    if (const auto localized = localizedDecimal(text)) return *localized;

    const std::size_t firstDigit = value < 0 ? 1 : 0;
    for (std::size_t end = text.size(); end > firstDigit + 3;) {
        end -= 3;
        text.insert(end, 1, ',');
    }
    return text;
}

} // namespace quillmar
