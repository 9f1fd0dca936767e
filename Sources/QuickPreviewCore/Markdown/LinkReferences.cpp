#include "Markdown/LinkReferences.h"

#include "Markdown/Lines.h"
#include "Markdown/MarkdownLimits.h"
#include "Markdown/TextBoundaries.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <utility>

namespace quillmar {
namespace {

constexpr std::size_t maxIndentation = 3;

std::string_view withoutLeadingWhiteSpace(std::string_view text) {
    return text.substr(Markdown::endOfWhiteSpace(text, 0));
}

std::string_view withoutTrailingWhiteSpace(std::string_view text) {
    return text.substr(0, Markdown::startOfWhiteSpace(text, 0, text.size()));
}

std::string_view untilWhiteSpace(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size() && Markdown::whiteSpaceLengthAt(text, end) == 0)
        end += UTF8::codePointAt(text, end).length;
    return text.substr(0, end);
}

bool holdsLineTerminator(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const UTF8::CodePoint character = UTF8::codePointAt(text, i);
        if (Markdown::isLineTerminator(character.value)) return true;
        i += character.length;
    }
    return false;
}

/// A definition as it stands in its line.
struct Parts {
    std::string_view label;
    std::string_view url;
    std::optional<std::string_view> title;
};

/// What stands between quotation marks or parentheses, which need not be a pair.
std::optional<std::string_view> titleIn(std::string_view text) {
    constexpr std::string_view opening = "\"'(";
    constexpr std::string_view closing = "\"')";
    if (text.size() < 2 || opening.find(text.front()) == opening.npos ||
        closing.find(text.back()) == closing.npos)
        return std::nullopt;
    const std::string_view title = text.substr(1, text.size() - 2);
    if (holdsLineTerminator(title)) return std::nullopt;
    return title;
}

/// Matches ^ {0,3}\[([^\]]+)\]:\s*(\S+)(?:\s+["'(](.*)["')])?\s*$ in one pass: fills \p parts, or returns
/// false. \p line is known to begin like it, with "[" at \p bracket.
bool readDefinition(std::string_view line, std::size_t bracket, Parts& parts) {
    const std::string_view inside = line.substr(bracket + 1);
    const std::size_t labelLength = inside.find(']');
    if (labelLength == 0 || labelLength == inside.npos) return false;
    std::string_view rest = inside.substr(labelLength + 1);
    if (!rest.starts_with(':')) return false;

    rest = withoutTrailingWhiteSpace(withoutLeadingWhiteSpace(rest.substr(1)));
    if (rest.empty()) return false;
    parts.label = inside.substr(0, labelLength);
    parts.url = untilWhiteSpace(rest);
    rest = withoutLeadingWhiteSpace(rest.substr(parts.url.size()));
    if (rest.empty()) return true;
    parts.title = titleIn(rest);
    return parts.title.has_value();
}

/// True when "]:" stands in \p text. Documents of little but brackets have work enough to be done.
bool mayHoldDefinitions(std::string_view text) {
    std::size_t colon = text.find(':');
    while (colon != text.npos && (colon == 0 || text[colon - 1] != ']')) colon = text.find(':', colon + 1);
    return colon != text.npos;
}

/// True for most labels that are: one word of letters and digits.
bool isNormalized(std::string_view label) {
    return std::all_of(label.begin(), label.end(),
                       [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'; });
}

std::string_view withoutAngleBrackets(std::string_view url) {
    if (url.starts_with('<') && url.ends_with('>')) return url.substr(1, url.size() - 2);
    return url;
}

} // namespace

std::vector<std::size_t> LinkReferences::collectReferences(std::string_view text) {
    std::vector<std::size_t> definitions;
    if (!mayHoldDefinitions(text)) return definitions;
    for (Markdown::LineReader lines(text); !lines.atEnd();) {
        const std::string_view line = lines.next();
        if (collect(line)) definitions.push_back(static_cast<std::size_t>(line.data() - text.data()));
    }
    return definitions;
}

bool LinkReferences::collect(std::string_view line) {
    if (openFence_) {
        if (openFence_->isClosedBy(line)) openFence_.reset();
        return false;
    }
    const std::size_t indent = Markdown::indentation(line);
    if (indent > maxIndentation || indent == line.size()) return false;
    if (line[indent] == '`' || line[indent] == '~') {
        openFence_ = Markdown::Fence::parse(line);
        if (openFence_) openFence_->language = {}; // the line may be gone before the fence is closed
        return false;
    }
    if (line[indent] != '[') return false;
    Parts parts;
    if (!readDefinition(line, indent, parts)) return false;
    std::string normalized;
    if (!isNormalized(parts.label)) parts.label = normalized = Markdown::normalizeLabel(parts.label);
    if (parts.label.starts_with('^')) return false; // a footnote's
    const bool isNew = labels_.insert(parts.label) == definitions_.size();
    if (!isNew) return true;
    Definition& definition = definitions_.emplace_back();
    definition.url = kept(withoutAngleBrackets(parts.url));
    if (parts.title) definition.title = kept(*parts.title);
    return true;
}

/// A copy of \p text: the line that it stands in may be gone before it is asked for.
std::string_view LinkReferences::kept(std::string_view text) {
    if (text.empty()) return {};
    auto* const bytes = static_cast<char*>(memory_.allocate(text.size(), alignof(char)));
    std::ranges::copy(text, bytes);
    return {bytes, text.size()};
}

const LinkReferences::Definition* LinkReferences::resolve(std::string_view label) {
    if (definitions_.empty()) return nullptr;
    const std::size_t number =
        isNormalized(label) ? labels_.find(label) : labels_.find(Markdown::normalizeLabel(label));
    if (number == TextIndex::none) return nullptr;
    const Definition& definition = definitions_[number];
    const std::size_t bytes = definition.url.size() + (definition.title ? definition.title->size() : 0);
    if (bytes > MarkdownLimits::maxResolvedReferenceBytes - resolvedBytes_) return nullptr;
    resolvedBytes_ += bytes;
    return &definition;
}

namespace Markdown {

std::string normalizeLabel(std::string_view label) {
    const std::string lowercase = lowercased(label);
    std::string key;
    key.reserve(lowercase.size());
    std::string_view rest = withoutLeadingWhiteSpace(lowercase);
    while (!rest.empty()) {
        const std::string_view word = untilWhiteSpace(rest);
        if (!key.empty()) key += ' ';
        key.append(word);
        rest = withoutLeadingWhiteSpace(rest.substr(word.size()));
    }
    return canonicalForm(std::move(key));
}

} // namespace Markdown
} // namespace quillmar
