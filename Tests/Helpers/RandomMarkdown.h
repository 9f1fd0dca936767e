#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Small random texts, put together from pieces that mean something. A seed names the same text everywhere.
namespace quillmar::RandomMarkdown {

/// What a text is made of: lines of some prefixes and some pieces.
struct Kind {
    std::string_view name;
    std::span<const std::string_view> prefixes; ///< what opens or continues containers; may be empty
    std::span<const std::string_view> pieces;   ///< a line feed in one is followed by prefixes as well
    std::size_t maxPieces = 0;                  ///< in one line
    std::size_t maxLines = 0;
    std::string_view head{}; ///< stands before the lines
    std::string_view tail{}; ///< stands behind them
};

/// The kinds of documents.
std::span<const Kind> kinds();

/// The kind called \p name; throws when there is none.
const Kind& kind(std::string_view name);

/// Raw HTML of what the filter looks for.
const Kind& htmlKind();

std::string text(const Kind& kind, std::uint64_t seed);

/// Several documents of any kind in one, so that much is open and much is remembered.
std::string mixture(std::uint64_t seed);

/// Resolves every path but those that hold an "m", to a URL that has to be escaped.
std::optional<std::string> resolveImage(const std::string& path);

} // namespace quillmar::RandomMarkdown
