#include "Markdown/LinkParser.h"

namespace quillmar::Markdown {

void LinkParser::reset(std::string_view text) {
    text_ = text;
    brackets_.reset(text);
    destinations_.reset(text);
    closingBracket_.reset();
}

const Link* LinkParser::parseLink(std::size_t open, std::size_t limit, std::size_t outerWalk) {
    const std::size_t firstClosing = closingBracket_.find(text_, open);
    if (firstClosing >= limit) return nullptr;
    const auto closing = brackets_.closing(open, limit, outerWalk);
    if (!closing) return nullptr;
    link_.text = text_.substr(open + 1, closing->position - open - 1);
    link_.walk = closing->walk;
    const std::size_t next = closing->position + 1;
    const char follows = next < limit ? text_[next] : '\0';
    // No label holds a "]": the outer ones of nested brackets are not looked up.
    const bool mayBeLabel = firstClosing == closing->position;
    if (follows == '(') return inlineLink(next, limit);
    if (follows == '[') return fullReference(mayBeLabel, next, limit);
    return mayBeLabel ? reference(link_.text, next) : nullptr;
}

const Link* LinkParser::inlineLink(std::size_t parenthesis, std::size_t limit) {
    const LinkTarget* target = destinations_.parse(parenthesis, limit);
    if (target == nullptr) return nullptr;
    link_.url = target->url;
    link_.title = target->title;
    link_.end = target->end;
    return &link_;
}

/// The label stands in the brackets from \p bracket on; when they are empty, the link's text is the label.
const Link* LinkParser::fullReference(bool textMayBeLabel, std::size_t bracket, std::size_t limit) {
    const std::size_t close = text_.find(']', bracket + 1);
    if (close >= limit) return nullptr;
    const std::string_view label = text_.substr(bracket + 1, close - bracket - 1);
    if (!label.empty()) return reference(label, close + 1);
    return textMayBeLabel ? reference(link_.text, close + 1) : nullptr;
}

const Link* LinkParser::reference(std::string_view label, std::size_t end) {
    const LinkReferences::Definition* definition = references_.resolve(label);
    if (definition == nullptr) return nullptr;
    link_.url = definition->url;
    link_.title = definition->title;
    link_.end = end;
    return &link_;
}

} // namespace quillmar::Markdown
