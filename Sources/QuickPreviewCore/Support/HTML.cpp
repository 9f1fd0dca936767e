#include "Support/HTML.h"

#include "Platform/IntegerFormat.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quillmar::HTML {
namespace {

/// Empty for a character that stands for itself.
constexpr std::string_view reference(char c) {
    switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {};
    }
}

/// Bytes that are tested together. Text without special characters passes at the speed of memory.
constexpr std::size_t blockSize = 16;

using Block = unsigned char __attribute__((vector_size(blockSize)));

/// True when one of the `blockSize` bytes at \p text needs a reference.
bool holdsSpecial(const char* text) {
    Block block;
    std::memcpy(&block, text, blockSize);
    const auto special = (block == '&') | (block == '<') | (block == '>') | (block == '"') | (block == '\'');
    std::array<std::uint64_t, 2> words{};
    static_assert(sizeof words == sizeof special);
    std::memcpy(words.data(), &special, sizeof words);
    return (words[0] | words[1]) != 0;
}

/// What a byte is written as: itself or its reference. One machine word, so that it is copied as one.
struct Expansion {
    std::array<char, 7> text{};
    std::uint8_t length = 0;
};

constexpr auto expansions = [] {
    std::array<Expansion, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const char c = static_cast<char>(byte);
        const std::string_view special = reference(c);
        const std::string_view text = special.empty() ? std::string_view(&c, 1) : special;
        std::copy(text.begin(), text.end(), table[byte].text.begin());
        table[byte].length = static_cast<std::uint8_t>(text.size());
    }
    return table;
}();

/// Appends at most `blockSize` bytes, escaped. Every expansion is copied whole, and what is too much
/// overwritten by the next one: copies of a fixed size need no branch.
void appendBlock(std::string& html, std::string_view block) {
    std::array<char, (blockSize + 1) * sizeof(Expansion)> escaped; // only what is written is read
    char* end = escaped.data();
    for (const char c : block) {
        const Expansion& expansion = expansions[static_cast<unsigned char>(c)];
        std::memcpy(end, &expansion, sizeof expansion);
        end += expansion.length;
    }
    html.append(escaped.data(), end);
}

} // namespace

void appendEscaped(std::string& html, std::string_view text) {
    std::size_t start = 0; // of the bytes that are not yet appended
    std::size_t i = 0;
    for (; text.size() - i >= blockSize; i += blockSize) {
        if (!holdsSpecial(text.data() + i)) continue;
        html.append(text, start, i - start);
        appendBlock(html, text.substr(i, blockSize));
        start = i + blockSize;
    }
    html.append(text, start, i - start);
    appendBlock(html, text.substr(i));
}

void appendEscaped(std::string& html, char character) {
    const std::string_view special = reference(character);
    if (special.empty()) {
        html.push_back(character);
    } else {
        html.append(special);
    }
}

std::string escape(std::string_view text) {
    std::string html;
    html.reserve(text.size());
    appendEscaped(html, text);
    return html;
}

std::string count(std::int64_t n, std::string_view singular, std::optional<std::string_view> plural) {
    std::string text = formattedInteger(n) + ' ';
    if (n == 1) return text.append(singular);
    if (plural) return text.append(*plural);
    return text.append(singular).append("s");
}

} // namespace quillmar::HTML
