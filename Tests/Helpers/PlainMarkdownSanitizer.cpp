#include "Tests/Helpers/PlainMarkdown.h"

#include "Platform/Text.h"
#include "Platform/UTF8.h"
#include "Support/HTML.h"
#include "Tests/Helpers/RegularExpression.h"

#include <string>

namespace quillmar::PlainMarkdown {
namespace {

using Match = RegularExpression::Match;
constexpr auto ignoredCase = RegularExpression::Case::ignored;

std::string nothing(const Match& /*match*/) { return {}; }

/// None when a "%" has no two hexadecimal digits behind it, and when the bytes are no UTF-8.
std::optional<std::string> withoutPercentEncoding(const std::string& text) {
    static const RegularExpression loneSign(R"re(%(?![0-9A-Fa-f]{2}))re");
    if (loneSign.matchesIn(text)) return std::nullopt;
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
        i += 2;
    }
    if (UTF8::validPrefix(decoded) != decoded.size()) return std::nullopt;
    return decoded;
}

} // namespace

std::string Parser::sanitizeHTML(const std::string& html) const {
    static const RegularExpression blockedElements(
        R"re(<(script|style|iframe|frame|frameset|object|embed|applet|form|textarea|select|button)\b[\s\S]*?(?:</\1\s*>|$))re",
        ignoredCase);
    static const RegularExpression blockedTags(
        R"re(</?(?:script|style|iframe|frame|object|embed|applet|form|input|link|meta|base)\b[^>]*>)re",
        ignoredCase);
    static const RegularExpression eventAttributes(R"re(\s+on[a-z]+\s*=\s*(?:"[^"]*"|'[^']*'|[^\s>]+))re",
                                                   ignoredCase);
    static const RegularExpression scriptURLs(
        R"re((href|src|action|formaction|xlink:href)\s*=\s*(["']?)\s*(?:javascript|vbscript|data:text):)re",
        ignoredCase);
    static const RegularExpression imageTags(R"re(<img\b[^>]*>)re", ignoredCase);

    std::string text = blockedElements.replaced(html, nothing);
    text = blockedTags.replaced(text, nothing);
    text = eventAttributes.replaced(text, nothing);
    text = scriptURLs.replaced(text, [](const Match& match) {
        return match.text(1).append("=").append(match.text(2)).append("#blocked:");
    });
    return imageTags.replaced(text, [this](const Match& match) { return imageTag(match.text(0)); });
}

std::string Parser::imageTag(const std::string& tag) const {
    static const RegularExpression imageSourcePattern(R"re((\bsrc\s*=\s*)(["'])([^"']*)\2)re", ignoredCase);
    static const RegularExpression imageAlt(R"re(\balt\s*=\s*(["'])([^"']*)\1)re", ignoredCase);
    const auto source = imageSourcePattern.firstMatch(tag);
    if (!source) return tag;
    if (const auto url = imageSource(source->text(3))) {
        std::string html = tag.substr(0, source->start);
        html.append(source->text(1)).append(source->text(2)).append(HTML::escape(*url)).append(source->text(2));
        return html.append(tag.substr(source->end));
    }
    const auto alt = imageAlt.firstMatch(tag);
    if (!alt || alt->text(2).empty()) return {};
    return std::string("<span class=\"missing-image\">").append(alt->text(2)).append("</span>");
}

std::optional<std::string> Parser::imageSource(const std::string& source) const {
    const std::string lower = lowercased(source);
    if (lower.starts_with("https://") || lower.starts_with("http://") || lower.starts_with("data:image/"))
        return source;
    if (lower.find(':') != std::string::npos && !lower.starts_with("./")) return std::nullopt;
    if (!resolveImage_) return std::nullopt;
    return resolveImage_(withoutPercentEncoding(source).value_or(source));
}

} // namespace quillmar::PlainMarkdown
