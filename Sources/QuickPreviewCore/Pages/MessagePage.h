#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The page of an item that has no content to show: one icon, a title, one sentence.
namespace quillmar::MessagePage {

/// \p icon is an attachment's reference.
std::string html(std::string_view title, std::string_view message, const std::optional<std::string>& icon);

} // namespace quillmar::MessagePage
