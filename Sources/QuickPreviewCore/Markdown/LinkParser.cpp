#include "Markdown/LinkParser.h"

namespace quillmar::Markdown {

void LinkParser::reset(std::string_view text) {
    text_ = text;
    brackets_.reset(text);
    destinations_.reset(text);
    closingBracket_.reset();
}

std::optional<LinkParser::Found> LinkParser::parseLink(std::size_t open, std::size_t limit,
                                                       std::size_t outerWalk) {
    const std::size_t firstClosing = closingBracket_.find(text_, open);
    if (firstClosing >= limit) return std::nullopt;
    const auto closing = brackets_.closing(open, limit, outerWalk);
    if (!closing) return std::nullopt;
    const std::string_view linkText = text_.substr(open + 1, closing->position - open - 1);
    const std::size_t next = closing->position + 1;
    const char follows = next < limit ? text_[next] : '\0';
    // No label holds a "]": the outer ones of nested brackets are not looked up.
    const bool mayBeLabel = firstClosing == closing->position;
    std::optional<Link> link;
    if (follows == '(') {
        link = inlineLink(linkText, next, limit);
    } else if (follows == '[') {
        link = fullReference(linkText, mayBeLabel, next, limit);
    } else {
        if (mayBeLabel) link = reference(linkText, linkText, next);
    }
    if (!link) return std::nullopt;
    return Found{.link = *link, .walk = closing->walk};
}

std::optional<Link> LinkParser::inlineLink(std::string_view linkText, std::size_t parenthesis,
                                           std::size_t limit) {
    const auto target = destinations_.parse(parenthesis, limit);
    if (!target) return std::nullopt;
    return Link{.text = linkText, .url = target->url, .title = target->title, .end = target->end};
}

/// The label stands in the brackets from \p bracket on; when they are empty, the link's text is the label.
std::optional<Link> LinkParser::fullReference(std::string_view linkText, bool textMayBeLabel,
                                              std::size_t bracket, std::size_t limit) {
    const std::size_t close = text_.find(']', bracket + 1);
    if (close >= limit) return std::nullopt;
    const std::string_view label = text_.substr(bracket + 1, close - bracket - 1);
    if (!label.empty()) return reference(linkText, label, close + 1);
    return textMayBeLabel ? reference(linkText, linkText, close + 1) : std::nullopt;
}

std::optional<Link> LinkParser::reference(std::string_view linkText, std::string_view label, std::size_t end) {
    const LinkReferences::Definition* definition = references_.resolve(label);
    if (definition == nullptr) return std::nullopt;
    Link link{.text = linkText, .url = definition->url, .title = std::nullopt, .end = end};
    if (definition->title) link.title = *definition->title;
    return link;
}

} // namespace quillmar::Markdown
