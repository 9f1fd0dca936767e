#pragma once

#include "Support/Composition.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The pieces that every page shares. Arguments are plain text and escaped here, unless said otherwise.
namespace quillmar::PageTemplate {

/// The whole document: head, stylesheet and \p body, which is HTML. \p bodyClass is a word of our own.
std::string document(std::string_view title, std::string_view bodyClass, std::string_view body);

/// The same in two halves, for a large body that is written between them and never copied. Room is made for
/// \p bodyBytes.
std::string documentStart(std::string_view title, std::string_view bodyClass, std::size_t bodyBytes);
inline constexpr std::string_view documentEnd = "\n</body>\n</html>";

/// \p icon is an attachment's reference; without one a placeholder stands in its place.
std::string header(const std::optional<std::string>& icon, std::string_view title,
                   const std::vector<std::string>& facts, const std::vector<std::string>& badges);

/// Figures in a row: pairs of label and value.
std::string stats(const std::vector<std::pair<std::string, std::string>>& figures);

/// One large figure with its caption.
std::string hero(std::string_view value, std::string_view caption);

/// A line that says what is missing from the page, or that there is nothing.
std::string notice(std::string_view text);

/// A bar of the parts that have bytes, in the order given, and a legend of the first six. Empty when no part
/// has.
std::string composition(const std::vector<CompositionPart>& parts);

} // namespace quillmar::PageTemplate
