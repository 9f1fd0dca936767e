#include "Tests/Helpers/PlainMarkdown.h"

#include "Platform/Text.h"
#include "Support/HTML.h"
#include "Tests/Helpers/RegularExpression.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmar::PlainMarkdown {
namespace {

constexpr std::size_t nowhere = Characters::npos;

bool isASCIIPunctuation(char32_t character) { return character < 0x80 && isPunctuationOrSymbol(character); }

bool holdsWhiteSpace(const Characters& characters) { return std::ranges::any_of(characters, isWhiteSpace); }

std::size_t afterWhiteSpace(const Characters& characters, std::size_t at) {
    while (at < characters.size() && isWhiteSpace(characters[at])) ++at;
    return at;
}

std::string anchor(const std::string& href, const std::string& html) {
    std::string result = "<a href=\"";
    return result.append(HTML::escape(href)).append("\">").append(html).append("</a>");
}

std::string titleAttribute(const std::optional<std::string>& title) {
    if (!title) return {};
    std::string result = " title=\"";
    return result.append(HTML::escape(*title)).append("\"");
}

Node delimiterRun(const Characters& characters, std::size_t at) {
    const std::size_t count = runLength(characters, at);
    const char32_t before = at == 0 ? U' ' : characters[at - 1];
    const char32_t after = at + count == characters.size() ? U' ' : characters[at + count];
    const bool spaceBefore = isWhiteSpace(before);
    const bool spaceAfter = isWhiteSpace(after);
    const bool markBefore = isPunctuationOrSymbol(before);
    const bool markAfter = isPunctuationOrSymbol(after);
    const bool leftFlanking = !spaceAfter && (!markAfter || spaceBefore || markBefore);
    const bool rightFlanking = !spaceBefore && (!markBefore || spaceAfter || markAfter);

    Node node{{}, characters[at], count, leftFlanking, rightFlanking};
    if (node.character == U'_' && leftFlanking && rightFlanking) {
        node.canOpen = markBefore;
        node.canClose = markAfter;
    }
    return node;
}

std::string codeSpan(Characters content) {
    std::ranges::replace(content, U'\n', U' ');
    const bool hasOuterSpaces = content.size() >= 2 && content.front() == U' ' && content.back() == U' ';
    if (hasOuterSpaces && content.find_first_not_of(U' ') != nowhere)
        content = content.substr(1, content.size() - 2);
    return std::string("<code>").append(HTML::escape(utf8(content))).append("</code>");
}

/// Where the bracketed text that begins at \p at ends: at its "]".
std::optional<std::size_t> closingBracket(const Characters& characters, std::size_t at) {
    std::size_t depth = 0;
    while (at < characters.size()) {
        const char32_t character = characters[at];
        if (character == U'\\') {
            at += 2;
            continue;
        }
        if (character == U'`') {
            const std::size_t run = runLength(characters, at);
            const auto closing = closingBackticks(characters, at + run, run);
            at = closing ? *closing + run : at + run;
            continue;
        }
        if (character == U'[') ++depth;
        if (character == U']' && --depth == 0) return at;
        ++at;
    }
    return std::nullopt;
}

/// The destination at \p at; the second of the pair is the position behind it.
std::pair<Characters, std::size_t> destination(const Characters& characters, std::size_t at) {
    if (at < characters.size() && characters[at] == U'<') {
        const std::size_t end = characters.find(U'>', at);
        if (end != nowhere) return {characters.substr(at + 1, end - at - 1), end + 1};
    }
    std::size_t end = at;
    std::size_t depth = 0;
    while (end < characters.size() && !isWhiteSpace(characters[end])) {
        if (characters[end] == U')' && depth == 0) break;
        if (characters[end] == U'(') ++depth;
        if (characters[end] == U')') --depth;
        end += characters[end] == U'\\' ? 2 : 1;
    }
    end = std::min(end, characters.size());
    return {characters.substr(at, end - at), end};
}

} // namespace

std::size_t runLength(const Characters& characters, std::size_t at) {
    return std::min(characters.find_first_not_of(characters[at], at), characters.size()) - at;
}

std::optional<std::size_t> closingBackticks(const Characters& characters, std::size_t from, std::size_t run) {
    std::size_t at = from;
    while ((at = characters.find(U'`', at)) != nowhere) {
        const std::size_t length = runLength(characters, at);
        if (length == run) return at;
        at += length;
    }
    return std::nullopt;
}

// NOLINTBEGIN(misc-no-recursion): the plain model follows the nesting of its small input.

std::string Parser::inlines(const Characters& characters) {
    std::vector<Node> nodes;
    std::string pending;
    const auto append = [&](const Node& node) {
        nodes.push_back({std::exchange(pending, {})});
        nodes.push_back(node);
    };
    std::size_t p = 0;
    while (p < characters.size()) {
        const char32_t character = characters[p];
        const char32_t next = p + 1 < characters.size() ? characters[p + 1] : U'\0';

        if (character == U'\\') {
            if (isASCIIPunctuation(next)) {
                pending += HTML::escape(utf8({next}));
                p += 2;
            } else if (next == U'\n') {
                append({"<br>\n"});
                p += 2;
            } else {
                pending += '\\';
                ++p;
            }
            continue;
        }
        if (character == U'`') {
            const std::size_t run = runLength(characters, p);
            if (const auto closing = closingBackticks(characters, p + run, run)) {
                append({codeSpan(characters.substr(p + run, *closing - p - run))});
                p = *closing + run;
            } else {
                pending.append(run, '`');
                p += run;
            }
            continue;
        }
        if (character == U'!' && next == U'[') {
            if (const auto parsed = parseLink(characters, p + 1)) {
                append({image(*parsed)});
                p = parsed->end;
                continue;
            }
        }
        if (character == U'[') {
            if (const auto parsed = parseLink(characters, p)) {
                append({link(*parsed)});
                p = parsed->end;
                continue;
            }
        }
        if (character == U'*' || character == U'_' || character == U'~') {
            const Node run = delimiterRun(characters, p);
            if (character == U'~' && run.count != 2)
                pending.append(run.count, '~');
            else
                append(run);
            p += run.count;
            continue;
        }
        if (character == U'<') {
            if (const auto construct = angleBracket(characters, p)) {
                append({construct->first});
                p = construct->second;
                continue;
            }
        }
        if (character == U'h' || character == U'H' || character == U'w' || character == U'W') {
            if (const auto address = bareURL(characters, p)) {
                append({address->first});
                p = address->second;
                continue;
            }
        }
        if (character == U'\n') {
            const bool hardBreak = pending.ends_with("  ");
            while (pending.ends_with(' ')) pending.pop_back();
            append({hardBreak ? "<br>\n" : "\n"});
            ++p;
            continue;
        }
        pending += HTML::escape(utf8({character}));
        ++p;
    }
    nodes.push_back({pending});
    return resolveEmphasis(nodes);
}

std::string Parser::link(const Link& link) {
    std::string html = "<a href=\"";
    html.append(HTML::escape(safeURL(link.url))).append("\"").append(titleAttribute(link.title)).append(">");
    return html.append(inlines(link.text)).append("</a>");
}

// NOLINTEND(misc-no-recursion)

std::string resolveEmphasis(std::vector<Node> nodes) {
    const auto literal = [](const Node& node) {
        return node.html + std::string(node.count, static_cast<char>(node.character));
    };
    std::size_t i = 0;
    while (i < nodes.size()) {
        const Node closer = nodes[i];
        std::optional<std::size_t> opener;
        if (closer.count >= 1 && closer.canClose) {
            for (std::size_t j = i; j-- > 0 && !opener;) {
                const Node& node = nodes[j];
                const bool opens = node.count >= 1 && node.canOpen && node.character == closer.character;
                if (opens && (node.character != U'~' || node.count == closer.count)) opener = j;
            }
        }
        if (!opener) {
            ++i;
            continue;
        }

        const std::size_t j = *opener;
        std::size_t used = nodes[j].count >= 2 && closer.count >= 2 ? 2 : 1;
        std::string tag = used == 2 ? "strong>" : "em>";
        if (closer.character == U'~') {
            used = 2;
            tag = "del>";
        }
        for (std::size_t between = j + 1; between < i; ++between) nodes[between] = {literal(nodes[between])};
        nodes[j].count -= used;
        nodes[i].count -= used;
        nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(i), Node{std::string("</").append(tag)});
        nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(j) + 1, Node{std::string("<").append(tag)});
        i += 2;
    }
    std::string html;
    for (const Node& node : nodes) html += literal(node);
    return html;
}

std::optional<Link> Parser::parseLink(const Characters& characters, std::size_t at) const {
    const auto bracket = closingBracket(characters, at);
    if (!bracket) return std::nullopt;
    const Characters text = characters.substr(at + 1, *bracket - at - 1);
    std::size_t next = *bracket + 1;
    const char32_t following = next < characters.size() ? characters[next] : U'\0';

    if (following == U'[') {
        const std::size_t end = characters.find(U']', next);
        if (end == nowhere) return std::nullopt;
        const Characters label = characters.substr(next + 1, end - next - 1);
        return reference(text, label.empty() ? text : label, end + 1);
    }
    if (following != U'(') return reference(text, text, next);

    const auto [url, urlEnd] = destination(characters, afterWhiteSpace(characters, next + 1));
    Link link{text, utf8(url), std::nullopt, 0};
    next = afterWhiteSpace(characters, urlEnd);
    if (next > urlEnd && next < characters.size()) {
        const std::size_t quote = Characters(U"\"'(").find(characters[next]);
        const std::size_t end = quote == nowhere ? nowhere : characters.find(U"\"')"[quote], next + 1);
        if (end != nowhere) {
            link.title = utf8(characters.substr(next + 1, end - next - 1));
            next = afterWhiteSpace(characters, end + 1);
        }
    }
    if (next >= characters.size() || characters[next] != U')') return std::nullopt;
    link.end = next + 1;
    return link;
}

std::optional<Link> Parser::reference(const Characters& text, const Characters& label, std::size_t end) const {
    const auto found = references_.find(normalizeLabel(utf8(label)));
    if (found == references_.end()) return std::nullopt;
    return Link{text, found->second.url, found->second.title, end};
}

std::string Parser::image(const Link& link) const {
    const std::string alt = HTML::escape(plainText(utf8(link.text)));
    std::string html;
    if (const auto source = imageSource(link.url)) {
        html.append("<img src=\"").append(HTML::escape(*source)).append("\" alt=\"").append(alt).append("\"");
        return html.append(titleAttribute(link.title)).append(">");
    }
    html.append("<span class=\"missing-image\" title=\"").append(HTML::escape(link.url)).append("\">");
    return html.append(alt.empty() ? "Image" : alt).append("</span>");
}

std::optional<Rest> Parser::angleBracket(const Characters& characters, std::size_t at) const {
    static const RegularExpression scheme(R"re(^\p{L}[\p{L}\p{Nd}+.-]{1,31}:)re");
    static const RegularExpression inlineTagPattern(
        R"re(^</?[A-Za-z][A-Za-z0-9-]*(?:\s+[A-Za-z_:][\w.:-]*(?:\s*=\s*(?:"[^"]*"|'[^']*'|[^\s"'=<>`]+))?)*\s*/?>$)re");

    const Characters commentStart = U"<!--";
    const Characters commentEnd = U"-->";
    if (characters.substr(at).starts_with(commentStart)) {
        const std::size_t end = characters.find(commentEnd, at + commentStart.size());
        if (end == nowhere) return std::nullopt;
        return Rest{"", end + commentEnd.size()};
    }
    const std::size_t end = characters.find(U'>', at);
    if (end == nowhere) return std::nullopt;
    const Characters inside = characters.substr(at + 1, end - at - 1);
    const std::string content = utf8(inside);
    if (!holdsWhiteSpace(inside)) {
        if (scheme.matchesIn(content)) return Rest{anchor(safeURL(content), HTML::escape(content)), end + 1};
        const bool isAddress = content.find('@') != std::string::npos && content.find('.') != std::string::npos;
        if (isAddress && !content.starts_with('/')) {
            std::string href = "mailto:";
            href += content;
            return Rest{anchor(href, HTML::escape(content)), end + 1};
        }
    }
    const std::string tag = utf8(characters.substr(at, end + 1 - at));
    if (inlineTagPattern.matchesIn(tag)) return Rest{sanitizeHTML(tag), end + 1};
    return std::nullopt;
}

std::optional<Rest> bareURL(const Characters& characters, std::size_t at) {
    if (at > 0) {
        const char32_t before = characters[at - 1];
        if (isLetter(before) || isDigit(before) || before == U'/') return std::nullopt;
    }
    const std::string start = lowercased(utf8(characters.substr(at, std::string_view("https://").size())));
    const bool isBare = start.starts_with("www.");
    if (!isBare && !start.starts_with("http://") && !start.starts_with("https://")) return std::nullopt;

    std::size_t end = at;
    while (end < characters.size() && !isWhiteSpace(characters[end]) && characters[end] != U'<') ++end;
    while (Characters(U".,:;!?*_~'\"").find(characters[end - 1]) != nowhere) --end;
    const std::string address = utf8(characters.substr(at, end - at));
    std::string href = isBare ? "https://" : "";
    href += address;
    return Rest{anchor(href, HTML::escape(address)), end};
}

} // namespace quillmar::PlainMarkdown
