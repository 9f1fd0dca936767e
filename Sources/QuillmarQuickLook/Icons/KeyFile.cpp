#include "QuillmarQuickLook/Icons/KeyFile.h"

#include <algorithm>

namespace quillmar {
namespace {

constexpr std::string_view whiteSpace = " \t\r";

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(whiteSpace);
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(whiteSpace) - begin + 1);
}

} // namespace

KeyFile::KeyFile(std::string text) : text_(std::move(text)) {
    std::string_view rest = text_;
    std::string_view group;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = trimmed(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.starts_with('#')) continue;
        if (line.starts_with('[') && line.ends_with(']')) {
            group = line.substr(1, line.size() - 2);
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == line.npos) continue;
        values_.try_emplace({group, trimmed(line.substr(0, equals))}, trimmed(line.substr(equals + 1)));
    }
}

std::optional<std::string_view> KeyFile::value(std::string_view group, std::string_view key) const {
    const auto found = values_.find({group, key});
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

} // namespace quillmar
