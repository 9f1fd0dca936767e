#include "Benchmarks/HostileTexts.h"

#include <cmath>

namespace quillmar::HostileTexts {

std::string times(std::size_t count, std::string_view unit) {
    std::string text;
    text.reserve(count * unit.size());
    for (; count > 0; --count) text.append(unit);
    return text;
}

Document repeated(std::string unit, std::string start) {
    return [=](std::size_t bytes) { return start + times((bytes - start.size()) / unit.size(), unit); };
}

Document matched(std::string opening, std::string middle, std::string closing) {
    return [=](std::size_t bytes) {
        const std::size_t count = (bytes - middle.size()) / (opening.size() + closing.size());
        return times(count, opening) + middle + times(count, closing);
    };
}

Document halves(std::string first, std::string second) {
    return [=](std::size_t bytes) {
        return times(bytes / 2 / first.size(), first) + times(bytes / 2 / second.size(), second);
    };
}

Document numbered(std::function<std::string(std::size_t index)> part) {
    return [=](std::size_t bytes) {
        std::string text;
        for (std::size_t i = 0;; ++i) {
            const std::string next = part(i);
            if (text.size() + next.size() > bytes) return text;
            text.append(next);
        }
    };
}

Document growing(std::string unit, std::string end, std::string start) {
    return [=](std::size_t bytes) {
        std::string text = start;
        for (std::size_t depth = 1; text.size() + depth * unit.size() + end.size() <= bytes; ++depth)
            text.append(times(depth, unit)).append(end);
        return text;
    };
}

Document square(std::string opening, std::function<std::string(std::size_t depth)> line) {
    return [=](std::size_t bytes) {
        const auto depth = static_cast<std::size_t>(
            std::sqrt(static_cast<double>(bytes) / static_cast<double>(opening.size())));
        std::string text = times(depth, opening) + "a\n";
        const std::string next = line(depth);
        return text + times((bytes - text.size()) / next.size(), next);
    };
}

std::string spaces(std::size_t count) { return std::string(count, ' '); }

std::string label(std::size_t number) {
    constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuvwxyz.,;:?=+-%$#@/()";
    std::string text;
    for (; text.empty() || number > 0; number /= digits.size()) text += digits[number % digits.size()];
    return text;
}

} // namespace quillmar::HostileTexts
