#include "QuillmarViewer/SpokenText.h"

#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillmar {
namespace {

/// Tags and images may stand between the words.
constexpr std::size_t maxBytesRead = 65'536;

/// Those that pages are escaped with.
constexpr std::array<std::pair<std::string_view, char>, 5> references{
    {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#39;", '\''}}};

/// What \p text begins with, and its length.
std::pair<char, std::size_t> characterAt(std::string_view text) {
    const auto found = std::ranges::find_if(
        references, [text](const auto& reference) { return text.starts_with(reference.first); });
    if (found == references.end()) return {text.front(), 1};
    return {found->second, found->first.size()};
}

bool isSpace(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

} // namespace

std::string spokenText(std::string_view html) {
    const std::size_t body = html.find("<body");
    if (body == html.npos) return {};
    html = html.substr(body, maxBytesRead);
    std::string text;
    bool isBetweenWords = false;
    while (!html.empty() && text.size() < maxSpokenBytes) {
        if (html.front() == '<') {
            const std::size_t end = html.find('>');
            html.remove_prefix(end == html.npos ? html.size() : end + 1);
            isBetweenWords = true;
            continue;
        }
        const auto [character, length] = characterAt(html);
        html.remove_prefix(length);
        if (isSpace(character)) {
            isBetweenWords = true;
            continue;
        }
        if (std::exchange(isBetweenWords, false) && !text.empty()) text += ' ';
        text += character;
    }
    return repairedText(std::move(text)); // the last character may have been cut
}

} // namespace quillmar
