#include "Markdown/Fence.h"

#include "Markdown/Lines.h"

#include <algorithm>

namespace quillmar::Markdown {
namespace {

constexpr std::size_t maxIndentation = 3;
constexpr std::size_t minLength = 3;

std::size_t runLength(std::string_view text, char character) {
    return std::min(text.find_first_not_of(character), text.size());
}

} // namespace

std::optional<Fence> Fence::parse(std::string_view line) {
    const std::size_t indent = indentation(line);
    if (indent > maxIndentation || indent == line.size()) return std::nullopt;
    const char character = line[indent];
    if (character != '`' && character != '~') return std::nullopt;
    const std::string_view run = line.substr(indent);
    const std::size_t length = runLength(run, character);
    if (length < minLength) return std::nullopt;
    const std::string_view info = trimmed(run.substr(length));
    if (character == '`' && info.find('`') != info.npos) return std::nullopt;
    return Fence{
        .character = character, .length = length, .indent = indent, .language = info.substr(0, info.find(' '))};
}

bool Fence::isClosedBy(std::string_view line) const {
    if (indentation(line) > maxIndentation) return false;
    const std::string_view run = trimmed(line);
    return run.size() >= length && runLength(run, character) == run.size();
}

} // namespace quillmar::Markdown
