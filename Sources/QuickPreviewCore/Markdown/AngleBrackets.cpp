#include "Markdown/AngleBrackets.h"

#include "Markdown/TextBoundaries.h"
#include "Platform/CharacterClass.h"
#include "Platform/UTF8.h"

#include <algorithm>

namespace quillmar::Markdown {
namespace {

bool isASCIILetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isASCIIDigit(char c) { return c >= '0' && c <= '9'; }

/// True when \p content begins with a scheme of 2 to 32 characters (as in CommonMark, but with the letters and
/// digits of every script) and ":".
bool beginsWithScheme(std::string_view content) {
    constexpr std::size_t minLength = 2;
    constexpr std::size_t maxLength = 32;
    std::size_t position = 0;
    for (std::size_t length = 0; length <= maxLength && position < content.size(); ++length) {
        const UTF8::CodePoint character = UTF8::codePointAt(content, position);
        if (character.value == U':') return length >= minLength;
        const bool isMark = character.value == U'+' || character.value == U'-' || character.value == U'.';
        const bool isPart = CharacterClass::isLetter(character.value) ||
                            (length > 0 && (isMark || CharacterClass::isDecimalDigit(character.value)));
        if (!isPart) return false;
        position += character.length;
    }
    return false;
}

/// Reads a tag from front to back. No step is ever taken back: what may follow a part cannot be in it.
class TagReader {
public:
    explicit TagReader(std::string_view tag) : rest_(tag) {}

    bool skip(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool skipTagName() {
        if (rest_.empty() || !isASCIILetter(rest_[0])) return false;
        skipWhile([](char c) { return isASCIILetter(c) || isASCIIDigit(c) || c == '-'; });
        return true;
    }

    bool skipAttributeName() {
        const bool begins = !rest_.empty() && (isASCIILetter(rest_[0]) || rest_[0] == '_' || rest_[0] == ':');
        if (!begins) return false;
        while (!rest_.empty()) {
            const UTF8::CodePoint character = UTF8::codePointAt(rest_, 0);
            const bool isPart = rest_[0] == '.' || rest_[0] == ':' || rest_[0] == '-' ||
                                CharacterClass::isWordCharacter(character.value);
            if (!isPart) break;
            rest_.remove_prefix(character.length);
        }
        return true;
    }

    /// "= value", if it follows; false when what follows "=" is no value.
    bool skipValue() {
        const std::string_view before = rest_;
        skipWhiteSpace();
        if (!skip('=')) {
            rest_ = before;
            return true;
        }
        skipWhiteSpace();
        if (rest_.starts_with('"') || rest_.starts_with('\'')) {
            const std::size_t close = rest_.find(rest_[0], 1);
            if (close == rest_.npos) return false;
            rest_.remove_prefix(close + 1);
            return true;
        }
        return skipUnquotedValue();
    }

    bool skipWhiteSpace() {
        const std::size_t length = endOfWhiteSpace(rest_, 0);
        rest_.remove_prefix(length);
        return length > 0;
    }

    bool atAttribute() const { return !rest_.empty() && rest_[0] != '/' && rest_[0] != '>'; }
    bool atEnd() const { return rest_.empty(); }

private:
    template <typename Predicate>
    void skipWhile(Predicate predicate) {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), predicate);
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.begin()));
    }

    bool skipUnquotedValue() {
        constexpr std::string_view excluded = "\"'=<>`";
        std::size_t end = 0;
        while (end < rest_.size() && excluded.find(rest_[end]) == excluded.npos &&
               whiteSpaceLengthAt(rest_, end) == 0)
            end += UTF8::codePointAt(rest_, end).length;
        rest_.remove_prefix(end);
        return end > 0;
    }

    std::string_view rest_;
};

} // namespace

bool isInlineTag(std::string_view tag) {
    TagReader reader(tag);
    if (!reader.skip('<')) return false;
    reader.skip('/');
    if (!reader.skipTagName()) return false;
    while (reader.skipWhiteSpace() && reader.atAttribute())
        if (!reader.skipAttributeName() || !reader.skipValue()) return false;
    reader.skip('/');
    return reader.skip('>') && reader.atEnd();
}

void AngleBrackets::reset(std::string_view text) {
    text_ = text;
    close_.reset();
    commentEnd_.reset();
    at_.reset();
    fullStop_.reset();
    whiteSpaceAskedFrom_ = 1; // nothing is known: no position lies between this and the next
    whiteSpace_ = 0;
}

std::optional<AngleBracket> AngleBrackets::angleBracket(std::size_t position, std::size_t limit) {
    using Kind = AngleBracket::Kind;
    constexpr std::string_view opening = "<!--";
    constexpr std::string_view closing = "-->";
    if (text_.substr(position, std::min(opening.size(), limit - position)) == opening) {
        const std::size_t end = commentEnd_.find(text_, position + opening.size());
        if (end == text_.npos || end + closing.size() > limit) return std::nullopt;
        return AngleBracket{.kind = Kind::comment, .content = {}, .end = end + closing.size()};
    }

    const std::size_t close = close_.find(text_, position);
    if (close >= limit) return std::nullopt;
    const std::size_t start = position + 1;
    const std::string_view content = text_.substr(start, close - start);
    const std::size_t end = close + 1;
    if (beginsWithScheme(content) && nextWhiteSpace(start) >= close)
        return AngleBracket{.kind = Kind::address, .content = content, .end = end};
    const bool isMailAddress = !content.starts_with('/') && at_.find(text_, start) < close &&
                               fullStop_.find(text_, start) < close && nextWhiteSpace(start) >= close;
    if (isMailAddress) return AngleBracket{.kind = Kind::mailAddress, .content = content, .end = end};
    const std::string_view tag = text_.substr(position, end - position);
    if (isInlineTag(tag)) return AngleBracket{.kind = Kind::tag, .content = tag, .end = end};
    return std::nullopt;
}

/// Where the next white space begins; questions go from left to right.
std::size_t AngleBrackets::nextWhiteSpace(std::size_t position) {
    if (whiteSpaceAskedFrom_ <= position && position <= whiteSpace_) return whiteSpace_;
    whiteSpaceAskedFrom_ = position;
    whiteSpace_ = position;
    while (whiteSpace_ < text_.size() && whiteSpaceLengthAt(text_, whiteSpace_) == 0)
        whiteSpace_ += UTF8::codePointAt(text_, whiteSpace_).length;
    return whiteSpace_;
}

} // namespace quillmar::Markdown
