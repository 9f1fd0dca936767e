#include "Markdown/Inlines.h"

#include "Markdown/AngleBrackets.h"
#include "Markdown/Backticks.h"
#include "Markdown/BareURL.h"
#include "Markdown/Emphasis.h"
#include "Markdown/HTMLSanitizer.h"
#include "Markdown/Images.h"
#include "Markdown/LinkParser.h"
#include "Markdown/SafeURL.h"
#include "Platform/CharacterClass.h"
#include "Platform/UTF8.h"
#include "Support/HTML.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace quillmar::Markdown {
namespace {

bool isASCIIPunctuation(char c) {
    return UTF8::isASCII(c) && CharacterClass::isPunctuationOrSymbol(static_cast<char32_t>(c));
}

/// Characters that are not simply copied: those that begin a construct, and those that HTML escapes.
constexpr auto isSpecial = [] {
    std::array<bool, 256> table{};
    for (const char c : std::string_view("\\`![*_~<hHwW\n&>\"'")) table[static_cast<unsigned char>(c)] = true;
    return table;
}();

/// Letters are special only where they can begin "http" or "www".
bool beginsAddress(char c, char next) {
    constexpr int toLower = 0x20;
    const int lower = c | toLower;
    const int nextLower = next | toLower;
    return (lower == 'h' && nextLower == 't') || (lower == 'w' && nextLower == 'w');
}

bool isLetterOfAddress(char c) { return c == 'h' || c == 'H' || c == 'w' || c == 'W'; }

} // namespace

/// One left-to-right scan. A link's text is scanned where it stands, within the limits of its brackets, so that
/// links in links need no call in a call.
struct Inlines::State {
    State(LinkReferences& references, const ImageResolver& imageResolver)
        : resolveImage(imageResolver), links(references, backticks) {}

    using Position = std::uint32_t; // see `MarkdownLimits::maxTextBytes`

    /// The whole text, or the text of a link in it. Kept small: links may nest, one in every seven bytes.
    struct Part {
        Position begin = 0;
        Position end = 0;
        Position resumeAt = 0; ///< of a link: the position behind it
        std::uint32_t walk = BracketPairs::noWalk;
    };

    const ImageResolver& resolveImage;
    Backticks backticks;
    LinkParser links;
    AngleBrackets angleBrackets;
    Emphasis emphasis;
    std::vector<Part> parts;

    std::string* html = nullptr;
    std::string_view text;
    Part part; ///< the innermost
    std::size_t position = 0;
    std::size_t pendingStart = 0; ///< in the HTML: behind the last construct

    void run(std::string& output, std::string_view input);
    void prepare();
    void copyPlainText();
    void step();
    void endLink();

    void backslash();
    void codeSpan();
    bool image();
    bool link();
    void delimiterRun();
    bool angleBracket();
    bool address();
    void lineBreak();

    void appendCharacter();
    void appendAnchor(std::string_view hrefPrefix, std::string_view href, std::string_view content) const;
    DelimiterRun classify(std::size_t end) const;
};

void Inlines::State::run(std::string& output, std::string_view input) {
    html = &output;
    text = input;
    part = {.begin = 0, .end = static_cast<Position>(text.size()), .resumeAt = 0, .walk = BracketPairs::noWalk};
    position = 0;
    pendingStart = output.size();
    copyPlainText();
    if (position == text.size()) return;
    prepare();
    for (;;) {
        copyPlainText();
        if (position < part.end) {
            step();
        } else if (!parts.empty()) {
            endLink();
        } else {
            break;
        }
    }
    emphasis.insert(output);
}

/// Most short texts are plain and need none of this.
void Inlines::State::prepare() {
    backticks.reset(text);
    links.reset(text);
    angleBrackets.reset(text);
    emphasis.clear();
}

void Inlines::State::copyPlainText() {
    const std::size_t start = position;
    while (position < part.end) {
        const char c = text[position];
        if (isSpecial[static_cast<unsigned char>(c)]) {
            const bool isLetter = isLetterOfAddress(c);
            if (!isLetter) break;
            if (position + 1 < part.end && beginsAddress(c, text[position + 1])) break;
        }
        ++position;
    }
    html->append(text, start, position - start);
}

/// Reads one construct, or one character where none is complete.
void Inlines::State::step() {
    bool isConstruct = false;
    switch (text[position]) {
    case '\\': return backslash();
    case '`': return codeSpan();
    case '*':
    case '_':
    case '~': return delimiterRun();
    case '\n': return lineBreak();
    case '!': isConstruct = image(); break;
    case '[': isConstruct = link(); break;
    case '<': isConstruct = angleBracket(); break;
    case 'h':
    case 'H':
    case 'w':
    case 'W': isConstruct = address(); break;
    default: break;
    }
    if (isConstruct) {
        pendingStart = html->size();
    } else {
        appendCharacter();
    }
}

void Inlines::State::appendCharacter() {
    HTML::appendEscaped(*html, text[position]);
    ++position;
}

void Inlines::State::backslash() {
    ++position;
    if (position < part.end && isASCIIPunctuation(text[position])) return appendCharacter();
    if (position < part.end && text[position] == '\n') {
        ++position;
        *html += "<br>\n";
        return;
    }
    *html += '\\';
}

void Inlines::State::codeSpan() {
    const std::size_t run = backticks.runAt(position, part.end);
    const std::size_t start = position + run;
    const auto closing = backticks.closing(start, run, part.end);
    if (!closing) {
        html->append(text, position, run);
        position = start;
        return;
    }
    std::string_view content = text.substr(start, *closing - start);
    const auto isSpace = [](char c) { return c == ' ' || c == '\n'; };
    const bool isPadded = content.size() >= 2 && isSpace(content.front()) && isSpace(content.back());
    if (isPadded && content.find_first_not_of(" \n") != content.npos)
        content = content.substr(1, content.size() - 2);
    *html += "<code>";
    const std::size_t contentStart = html->size();
    HTML::appendEscaped(*html, content);
    std::replace(html->begin() + static_cast<std::ptrdiff_t>(contentStart), html->end(), '\n', ' ');
    *html += "</code>";
    position = *closing + run;
    pendingStart = html->size();
}

bool Inlines::State::image() {
    const std::size_t bracket = position + 1;
    if (bracket >= part.end || text[bracket] != '[') return false;
    const Link* found = links.parseLink(bracket, part.end, part.walk);
    if (found == nullptr) return false;
    appendImage(*html, *found, resolveImage);
    position = found->end;
    return true;
}

bool Inlines::State::link() {
    const Link* link = links.parseLink(position, part.end, part.walk);
    if (link == nullptr) return false;
    *html += "<a href=\"";
    appendSafeURL(*html, link->url);
    if (link->title) {
        *html += "\" title=\"";
        HTML::appendEscaped(*html, *link->title);
    }
    *html += "\">";
    emphasis.beginLinkText();
    parts.push_back(part);
    const auto begin = static_cast<Position>(position + 1);
    part = {.begin = begin,
            .end = begin + static_cast<Position>(link->text.size()),
            .resumeAt = static_cast<Position>(link->end),
            .walk = link->walk};
    position = begin;
    return true;
}

void Inlines::State::endLink() {
    emphasis.endLinkText();
    *html += "</a>";
    pendingStart = html->size();
    position = part.resumeAt;
    part = parts.back();
    parts.pop_back();
}

/// The run from `position` to \p end. Where the part begins and ends, its neighbours are spaces.
DelimiterRun Inlines::State::classify(std::size_t end) const {
    const char32_t before = position > part.begin ? UTF8::codePointBefore(text, position).value : U' ';
    const char32_t after = end < part.end ? UTF8::codePointAt(text, end).value : U' ';
    const bool spaceBefore = CharacterClass::isWhiteSpace(before);
    const bool spaceAfter = CharacterClass::isWhiteSpace(after);
    const bool punctuationBefore = CharacterClass::isPunctuationOrSymbol(before);
    const bool punctuationAfter = CharacterClass::isPunctuationOrSymbol(after);
    const bool leftFlanking = !spaceAfter && (!punctuationAfter || spaceBefore || punctuationBefore);
    const bool rightFlanking = !spaceBefore && (!punctuationBefore || spaceAfter || punctuationAfter);
    const bool isInsideWord = text[position] == '_' && leftFlanking && rightFlanking;
    return {.character = text[position],
            .count = end - position,
            .canOpen = isInsideWord ? punctuationBefore : leftFlanking,
            .canClose = isInsideWord ? punctuationAfter : rightFlanking};
}

void Inlines::State::delimiterRun() {
    const std::size_t end = std::min<std::size_t>(text.find_first_not_of(text[position], position), part.end);
    const bool isDelimiter = text[position] != '~' || end - position == 2;
    const DelimiterRun run = isDelimiter ? classify(end) : DelimiterRun{};
    if (run.canOpen || run.canClose) {
        emphasis.add(run, html->size());
    } else {
        html->append(text, position, end - position);
    }
    if (isDelimiter) pendingStart = html->size();
    position = end;
}

bool Inlines::State::angleBracket() {
    const auto found = angleBrackets.angleBracket(position, part.end);
    if (!found) return false;
    switch (found->kind) {
    case AngleBracket::Kind::comment: break;
    case AngleBracket::Kind::tag: appendSanitizedHTML(*html, found->content, resolveImage); break;
    case AngleBracket::Kind::mailAddress: appendAnchor("mailto:", found->content, found->content); break;
    case AngleBracket::Kind::address: appendAnchor({}, safeURL(found->content), found->content); break;
    }
    position = found->end;
    return true;
}

bool Inlines::State::address() {
    const std::string_view partText = text.substr(part.begin, part.end - part.begin);
    const std::string_view found = bareURL(partText, position - part.begin);
    if (found.empty()) return false;
    appendAnchor(beginsWithWWW(found) ? "https://" : "", found, found);
    position += found.size();
    return true;
}

void Inlines::State::appendAnchor(std::string_view hrefPrefix, std::string_view href,
                                  std::string_view content) const {
    *html += "<a href=\"";
    *html += hrefPrefix;
    HTML::appendEscaped(*html, href);
    *html += "\">";
    HTML::appendEscaped(*html, content);
    *html += "</a>";
}

/// Two spaces before it break the line; others are dropped.
void Inlines::State::lineBreak() {
    std::size_t spaces = 0;
    while (html->size() > pendingStart && html->back() == ' ') {
        html->pop_back();
        ++spaces;
    }
    *html += spaces >= 2 ? "<br>\n" : "\n";
    ++position;
}

Inlines::Inlines(LinkReferences& references, const ImageResolver& resolveImage)
    : state_(std::make_unique<State>(references, resolveImage)) {}

Inlines::~Inlines() = default;

void Inlines::append(std::string& html, std::string_view text) {
    if (!text.empty()) state_->run(html, text);
}

} // namespace quillmar::Markdown
