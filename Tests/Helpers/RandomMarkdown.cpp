#include "Tests/Helpers/RandomMarkdown.h"

#include <algorithm>
#include <random>
#include <stdexcept>
#include <vector>

namespace quillmar::RandomMarkdown {
namespace {

using Pieces = std::span<const std::string_view>;

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(engine_() % bound); }
    bool oneIn(std::size_t n) { return below(n) == 0; }
    std::string_view oneOf(Pieces pieces) { return pieces[below(pieces.size())]; }

private:
    std::mt19937_64 engine_;
};

/// Few pieces meet each other more often than many do.
std::vector<std::string_view> some(Pieces pieces, Random& random) {
    if (pieces.empty() || random.oneIn(3)) return {pieces.begin(), pieces.end()};
    std::vector<std::string_view> chosen(2 + random.below(8));
    for (std::string_view& piece : chosen) piece = random.oneOf(pieces);
    return chosen;
}

/// \p prefix with its list markers as spaces: what continues the same containers.
std::string continued(std::string prefix) {
    for (char& byte : prefix)
        if (byte != '>' && static_cast<unsigned char>(byte) < 0x80) byte = ' ';
    return prefix;
}

/// The prefixes of a line under one with \p previous: often the same, or what continues them.
std::string prefixes(Pieces pieces, std::string previous, Random& random) {
    if (pieces.empty() || random.oneIn(6)) return {};
    if (random.oneIn(3)) previous.clear();
    if (random.oneIn(2)) previous = continued(previous);
    if (random.oneIn(3)) return previous;
    for (std::size_t n = random.below(4); n > 0; --n) previous += random.oneOf(pieces);
    return previous;
}

std::size_t nextCharacter(std::string_view text, std::size_t at) {
    if (at < text.size()) ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80) ++at;
    return at;
}

/// \p text with one character or a few left out or doubled: most constructs are read by what is nearly one.
std::string damaged(std::string text, Random& random) {
    const std::size_t start = nextCharacter(text, random.below(text.size() + 1));
    std::size_t end = start;
    for (std::size_t n = 1 + random.below(3); n > 0; --n) end = nextCharacter(text, end);
    if (random.oneIn(2)) return text.erase(start, end - start);
    return text.insert(end, text.substr(start, end - start));
}

} // namespace

const Kind& kind(std::string_view name) {
    const auto found = std::ranges::find(kinds(), name, &Kind::name);
    if (found == kinds().end()) throw std::invalid_argument("no such kind of document");
    return *found;
}

std::string text(const Kind& kind, std::uint64_t seed) {
    Random random(seed);
    const std::vector<std::string_view> pieces = some(kind.pieces, random);
    const std::vector<std::string_view> openers = some(kind.prefixes, random);
    std::string result(kind.head);
    std::string prefix;
    for (std::size_t lines = 1 + random.below(kind.maxLines); lines > 0; --lines) {
        if (!random.oneIn(7)) {
            prefix = prefixes(openers, prefix, random);
            result += prefix;
            for (std::size_t n = random.below(kind.maxPieces + 1); n > 0; --n) {
                for (const char byte : random.oneOf(pieces)) {
                    result += byte;
                    if (byte == '\n' && !random.oneIn(4)) result += continued(prefix);
                }
            }
        }
        if (lines > 1 || random.oneIn(3)) result += random.oneIn(30) ? "\r\n" : "\n";
    }
    while (random.oneIn(3)) result = damaged(std::move(result), random);
    return result.append(kind.tail);
}

std::string mixture(std::uint64_t seed) {
    Random random(seed);
    std::string result;
    const std::size_t separator = random.below(3);
    for (std::size_t n = 2 + random.below(8); n > 0; --n) {
        const Kind& kind = kinds()[random.below(kinds().size())];
        result.append(text(kind, seed + n)).append(separator, '\n');
    }
    return result;
}

std::optional<std::string> resolveImage(const std::string& path) {
    if (path.find('m') != std::string::npos) return std::nullopt;
    std::string url = "image?\"";
    return url.append(path).append("'&");
}

} // namespace quillmar::RandomMarkdown
