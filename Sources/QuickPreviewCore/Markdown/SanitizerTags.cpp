#include "Markdown/CaseFolding.h"
#include "Markdown/Lines.h"
#include "Markdown/NearbyByte.h"
#include "Markdown/SanitizerPatterns.h"
#include "Markdown/TextBoundaries.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>

namespace quillmar::Markdown::SanitizerPatterns {
namespace {

/// Names that are looked for, and the bytes that they may begin with: most tags are told by their first byte.
class TagNames {
public:
    constexpr TagNames(std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names) {
            words_[count_++] = CaseFolding::packed(name);
            begins_[static_cast<unsigned char>(name.front())] = true;
            begins_[static_cast<unsigned char>(name.front() - 'a' + 'A')] = true;
        }
        for (std::size_t byte = 0x80; byte < begins_.size(); ++byte) begins_[byte] = true;
    }

    /// False when none of the names can stand at \p position.
    bool mayBeginAt(std::string_view text, std::size_t position) const {
        return position < text.size() && begins_[static_cast<unsigned char>(text[position])];
    }

    bool contains(std::uint64_t word) const {
        return std::find(words_.begin(), words_.begin() + count_, word) != words_.begin() + count_;
    }

private:
    static constexpr std::size_t maxCount = 12;

    std::array<std::uint64_t, maxCount> words_{};
    std::size_t count_ = 0;
    std::array<bool, 256> begins_{};
};

constexpr TagNames blockedElementNames{"script", "style",  "iframe", "frame",    "frameset", "object",
                                       "embed",  "applet", "form",   "textarea", "select",   "button"};

constexpr TagNames blockedTagNames{"script", "style", "iframe", "frame", "object", "embed",
                                   "applet", "form",  "input",  "link",  "meta",   "base"};

constexpr TagNames imageTagNames{"img"};

/// The one of \p names that stands at \p position as a whole word. A letter behind a name would be a part of
/// the word, so names are compared with all the letters there are.
std::optional<CaseFolding::Word> nameAt(std::string_view text, std::size_t position, const TagNames& names) {
    const auto word = CaseFolding::wordAt(text, position);
    if (!word || !names.contains(word->letters) || !isWordEnd(text, word->end)) return std::nullopt;
    return word;
}

/// Position in front of the line break that ends \p text, else its end: where $ matches first.
std::size_t endBeforeLastLineBreak(std::string_view text) {
    if (text.ends_with("\r\n")) return text.size() - 2;
    if (text.empty()) return 0;
    const UTF8::CodePoint last = UTF8::codePointBefore(text, text.size());
    return isLineTerminator(last.value) ? text.size() - last.length : text.size();
}

/// Where the first closing tag of \p name from \p position on ends.
std::optional<std::size_t> endOfClosingTag(std::string_view text, std::size_t position, std::uint64_t name) {
    for (std::size_t tag = text.find("</", position); tag != text.npos; tag = text.find("</", tag + 1)) {
        const auto word = CaseFolding::wordAt(text, tag + 2);
        if (!word || word->letters != name) continue;
        const std::size_t end = endOfWhiteSpace(text, word->end);
        if (end < text.size() && text[end] == '>') return end + 1;
    }
    return std::nullopt;
}

enum class ClosingTags { no, yes };

/// A tag from one of \p names up to the next ">".
std::optional<Range> nextTag(std::string_view text, std::size_t position, const TagNames& names,
                             ClosingTags closingTags) {
    for (std::size_t tag = findNearby(text, '<', position); tag != text.npos;
         tag = findNearby(text, '<', tag + 1)) {
        std::size_t nameStart = tag + 1;
        if (closingTags == ClosingTags::yes && text.substr(nameStart).starts_with('/')) ++nameStart;
        if (!names.mayBeginAt(text, nameStart)) continue;
        const auto name = nameAt(text, nameStart, names);
        if (!name) continue;
        const std::size_t end = text.find('>', name->end);
        if (end == text.npos) return std::nullopt; // no tag behind this one has a ">" either
        return Range{.start = tag, .end = end + 1};
    }
    return std::nullopt;
}

} // namespace

bool isHarmlessTag(std::string_view text) {
    std::size_t tag = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isSecondTag = text[i] == '<' && tag != text.size();
        if (text[i] == '=' || isSecondTag) return false;
        if (text[i] == '<') tag = i;
    }
    if (tag == text.size()) return true;
    const std::size_t nameStart = text.substr(tag + 1).starts_with('/') ? tag + 2 : tag + 1;
    const auto name = CaseFolding::wordAt(text, nameStart);
    return !name || !(blockedElementNames.contains(name->letters) || blockedTagNames.contains(name->letters));
}

std::optional<Range> nextBlockedElement(std::string_view text, std::size_t position) {
    for (std::size_t tag = findNearby(text, '<', position); tag != text.npos;
         tag = findNearby(text, '<', tag + 1)) {
        if (!blockedElementNames.mayBeginAt(text, tag + 1)) continue;
        const auto name = nameAt(text, tag + 1, blockedElementNames);
        if (!name) continue;
        const auto end = endOfClosingTag(text, name->end, name->letters);
        return Range{.start = tag, .end = end ? *end : endBeforeLastLineBreak(text)};
    }
    return std::nullopt;
}

std::optional<Range> nextBlockedTag(std::string_view text, std::size_t position) {
    return nextTag(text, position, blockedTagNames, ClosingTags::yes);
}

std::optional<Range> nextImageTag(std::string_view text, std::size_t position) {
    return nextTag(text, position, imageTagNames, ClosingTags::no);
}

} // namespace quillmar::Markdown::SanitizerPatterns
