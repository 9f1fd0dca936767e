#pragma once

#include <optional>
#include <string_view>

/// What people call the language of a file.
namespace quillmar::LanguageNames {

/// By the whole file name, lower-cased ("makefile").
std::optional<std::string_view> ofSpecialName(std::string_view name);
/// By the path extension, lower-cased ("cpp").
std::optional<std::string_view> ofExtension(std::string_view extension);

} // namespace quillmar::LanguageNames
