#include "Markdown/LinkParser.h"

namespace quillmar::Markdown {

void LinkParser::reset(std::string_view text) {
    text_ = text;
    brackets_.reset(text);
    destinations_.reset(text);
    closingBracket_.reset();
}

std::optional<Link> LinkParser::parseLink(std::size_t open, std::size_t limit, std::size_t outerWalk) {
    const std::size_t firstClosing = closingBracket_.find(text_, open);
    if (firstClosing >= limit) return std::nullopt;
    const auto closing = brackets_.closing(open, limit, outerWalk);
    if (!closing) return std::nullopt;
    const Text text{.raw = text_.substr(open + 1, closing->position - open - 1), .walk = closing->walk};
    const std::size_t next = closing->position + 1;
    const char follows = next < limit ? text_[next] : '\0';
    // No label holds a "]": the outer ones of nested brackets are not looked up.
    const bool mayBeLabel = firstClosing == closing->position;
    if (follows == '(') return inlineLink(text, next, limit);
    if (follows == '[') return fullReference(text, mayBeLabel, next, limit);
    return mayBeLabel ? reference(text, text.raw, next) : std::nullopt;
}

std::optional<Link> LinkParser::inlineLink(const Text& text, std::size_t parenthesis, std::size_t limit) {
    const auto target = destinations_.parse(parenthesis, limit);
    if (!target) return std::nullopt;
    return Link{
        .text = text.raw, .url = target->url, .title = target->title, .end = target->end, .walk = text.walk};
}

/// The label stands in the brackets from \p bracket on; when they are empty, the link's text is the label.
std::optional<Link> LinkParser::fullReference(const Text& text, bool textMayBeLabel, std::size_t bracket,
                                              std::size_t limit) {
    const std::size_t close = text_.find(']', bracket + 1);
    if (close >= limit) return std::nullopt;
    const std::string_view label = text_.substr(bracket + 1, close - bracket - 1);
    if (!label.empty()) return reference(text, label, close + 1);
    return textMayBeLabel ? reference(text, text.raw, close + 1) : std::nullopt;
}

std::optional<Link> LinkParser::reference(const Text& text, std::string_view label, std::size_t end) {
    const LinkReferences::Definition* definition = references_.resolve(label);
    if (definition == nullptr) return std::nullopt;
    return Link{
        .text = text.raw, .url = definition->url, .title = definition->title, .end = end, .walk = text.walk};
}

} // namespace quillmar::Markdown
