#include "Markdown/HTMLSanitizer.h"
#include "Markdown/ImageSource.h"
#include "Markdown/SanitizerPatterns.h"
#include "Support/HTML.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unicode/regex.h>
#include <unicode/unistr.h>
#include <vector>

/// Random texts, for which our scanners and ICU's engine must agree on every match and every group.
namespace quillmar::Markdown {
namespace {

/// The whole match and its groups, as text.
using Groups = std::vector<std::string>;

struct ICUMatch {
    std::string before; ///< the text between the match before and this one
    Groups groups;      ///< the whole match first
    bool operator==(const ICUMatch&) const = default;
};

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

/// An expression as ICU compiles it, case-insensitive.
class Expression {
public:
    explicit Expression(const char* pattern) {
        UErrorCode status = U_ZERO_ERROR;
        pattern_.reset(
            icu::RegexPattern::compile(icu::UnicodeString::fromUTF8(pattern), UREGEX_CASE_INSENSITIVE, status));
        require(status);
    }

    std::vector<ICUMatch> matches(std::string_view text) const {
        const auto input = icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::RegexMatcher> matcher(pattern_->matcher(input, status));
        std::vector<ICUMatch> found;
        std::int32_t end = 0;
        while (matcher->find(status)) {
            Groups groups;
            for (std::int32_t group = 0; group <= matcher->groupCount(); ++group)
                groups.push_back(utf8(matcher->group(group, status)));
            const std::int32_t start = matcher->start(status);
            found.push_back({.before = utf8(input.tempSubStringBetween(end, start)), .groups = groups});
            end = matcher->end(status);
        }
        require(status);
        return found;
    }

    /// \p text with every match replaced by what \p replacement makes of its groups.
    template <typename Replacement>
    std::string replaced(const std::string& text, Replacement replacement) const {
        std::string result;
        std::size_t read = 0;
        for (const ICUMatch& match : matches(text)) {
            result += match.before + replacement(match.groups);
            read += match.before.size() + match.groups.front().size();
        }
        return result.append(text, read);
    }

private:
    static void require(UErrorCode status) {
        if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
    }

    std::unique_ptr<icu::RegexPattern> pattern_;
};

const Expression blockedElements(R"(<(script|style|iframe|frame|frameset|object|embed|applet|form|textarea|)"
                                 R"(select|button)\b[\s\S]*?(?:</\1\s*>|$))");
const Expression blockedTags(R"(</?(?:script|style|iframe|frame|object|embed|applet|form|input|link|meta|base))"
                             R"(\b[^>]*>)");
const Expression eventAttributes(R"re(\s+on[a-z]+\s*=\s*(?:"[^"]*"|'[^']*'|[^\s>]+))re");
const Expression scriptURLs(R"re((href|src|action|formaction|xlink:href)\s*=\s*(["']?)\s*)re"
                            R"re((?:javascript|vbscript|data:text):)re");
const Expression imageTags(R"(<img\b[^>]*>)");
const Expression imageSources(R"re((\bsrc\s*=\s*)(["'])([^"']*)\2)re");
const Expression imageAlts(R"re(\balt\s*=\s*(["'])([^"']*)\1)re");

// The slots of one piece of markup, each with what may stand in it. An empty text leaves a slot out.
using Slot = std::vector<std::string_view>;
using Piece = std::vector<Slot>;

const Slot whiteSpace{"",   "",       " ",      " ",      "  ",     "\t",     "\n",    "\r\n",
                      "\v", "\u0085", "\u00A0", "\u2028", "\u3000", "\u001C", "\u200B"};
const Slot quotes{"", "\"", "\"", "'", "'"};
const Slot values{"",       "x",   "ok.png", "a%20b",   "http://h/", "data:image/",
                  "file:x", "a=b", "./a:b",  "\u00E9>", "a b"};
const Slot names{"script",   "SCRIPT",   "\u017Fcript", "style",     "\uFB06yle", "\uFB05YLE", "iframe",
                 "frame",    "frameset", "object",      "embed",     "applet",    "form",      "textarea",
                 "select",   "button",   "input",       "lin\u212A", "meta",      "base",      "img",
                 "\u0130mg", "IMG",      "a",           "formx"};
const Slot urlNames{"href", "src", "\u017FRC", "action", "formaction", "xlink:href", "xlin\u212A:HREF",
                    "form", "x"};
const Slot schemes{
    "javascript:", "JAVA\u017FCRIPT:", "vb\u017Fcript:", "data:text:", "data:", "java", "javascript"};
const Slot wordEnds{"", "", "", "", " ", "/", "-", "_", "s", "\u0301", "\u200D", "\u00AD", "\u00E9", "\uFFFD"};
const Slot textEnds{"",   "",   "",       "\n",     "\r\n",   "\r",   "\n\r",
                    "\f", "\v", "\u0085", "\u2028", "\u2029", "\n\n", "x"};

const std::array<Piece, 7> pieces{
    Piece{{"<", "<", "</"}, names, wordEnds, whiteSpace, {">", ">", ""}, {"", "x", "\r"}},
    Piece{{"</"}, names, whiteSpace, {">", ">", ">", ""}},
    Piece{whiteSpace,
          {"on", "ON", "o"},
          {"", "x", "Click", "\u017F", "\u212A", "\u00E9", "x-"},
          whiteSpace,
          {"="},
          whiteSpace,
          quotes,
          values,
          quotes},
    Piece{urlNames, whiteSpace, {"="}, whiteSpace, quotes, whiteSpace, schemes, values, quotes},
    Piece{{"<img"},
          wordEnds,
          {"", " alt='x'", " alt=\"\""},
          {" "},
          {"src", "\u017Frc"},
          whiteSpace,
          {"="},
          quotes,
          values,
          quotes,
          {"", " alt='\U0001F331'", " alt=x"},
          {">", ">", ""}},
    Piece{wordEnds, {"src", "alt", "ALT"}, whiteSpace, {"="}, whiteSpace, quotes, values, quotes},
    Piece{textEnds, {"", "=", "<", ">", "\"", "'", ":"}}};

/// The same texts in every run: pieces of markup, most of them whole.
class TextGenerator {
public:
    std::string next() {
        std::string text;
        for (std::size_t count = 1 + below(5); count > 0; --count) appendPiece(text);
        return text.append(oneOf(textEnds));
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string_view oneOf(const Slot& slot) { return slot[below(slot.size())]; }

    void appendPiece(std::string& text) {
        for (const Slot& slot : pieces[below(pieces.size())]) {
            constexpr std::size_t rarity = 24; // of a slot that is left out or has something wrong in it
            const std::size_t chance = below(rarity);
            if (chance == 1) text += oneOf(wordEnds);
            if (chance != 0) text += oneOf(slot);
        }
    }

    std::mt19937 random_{20'240'304}; // any number
};

constexpr std::size_t textCount = 20'000;

using namespace SanitizerPatterns;

Range rangeOf(const Range& match) { return match; }
Range rangeOf(const ScriptURL& match) { return match.range; }
Range rangeOf(const QuotedAttribute& match) { return match.range; }

/// What a scanner finds, in the form of what ICU finds. \p groupsOf gives the groups behind the whole match.
template <typename Next, typename GroupsOf>
std::vector<ICUMatch> matches(std::string_view text, Next next, GroupsOf groupsOf) {
    std::vector<ICUMatch> found;
    std::size_t end = 0;
    while (const auto match = next(text, end)) {
        const Range range = rangeOf(*match);
        Groups groups{std::string(text.substr(range.start, range.end - range.start))};
        for (const std::string_view group : groupsOf(*match)) groups.emplace_back(group);
        found.push_back({.before = std::string(text.substr(end, range.start - end)), .groups = groups});
        end = range.end;
    }
    return found;
}

/// Compares over all texts. \p groupCount is how many of the expression's groups the scanner reports.
template <typename Next, typename GroupsOf>
void expectTheSame(const Expression& expression, Next next, GroupsOf groupsOf, std::size_t groupCount) {
    TextGenerator texts;
    std::size_t matched = 0;
    for (std::size_t i = 0; i < textCount; ++i) {
        const std::string text = texts.next();
        std::vector<ICUMatch> expected = expression.matches(text);
        for (ICUMatch& match : expected) match.groups.resize(1 + groupCount);
        matched += expected.size();
        ASSERT_EQ(matches(text, next, groupsOf), expected) << testing::PrintToString(text);
    }
    EXPECT_GT(matched, textCount / 20) << "the texts have lost what this expression looks for";
}

using Views = std::vector<std::string_view>;

Views noGroups(const Range&) { return {}; }

TEST(SanitizerDifferential, blockedElementsAreThoseOfICU) {
    expectTheSame(blockedElements, nextBlockedElement, noGroups, 0);
}

TEST(SanitizerDifferential, blockedTagsAreThoseOfICU) {
    expectTheSame(blockedTags, nextBlockedTag, noGroups, 0);
}

TEST(SanitizerDifferential, eventAttributesAreThoseOfICU) {
    expectTheSame(eventAttributes, nextEventAttribute, noGroups, 0);
}

TEST(SanitizerDifferential, scriptURLsAreThoseOfICU) {
    expectTheSame(
        scriptURLs, nextScriptURL,
        [](const ScriptURL& url) {
            return Views{url.name, url.quote};
        },
        2);
}

TEST(SanitizerDifferential, imageTagsAreThoseOfICU) { expectTheSame(imageTags, nextImageTag, noGroups, 0); }

TEST(SanitizerDifferential, imageSourcesAreThoseOfICU) {
    expectTheSame(
        imageSources, nextImageSource,
        [](const QuotedAttribute& source) {
            return Views{source.name, source.quote, source.value};
        },
        3);
}

TEST(SanitizerDifferential, imageAltsAreThoseOfICU) {
    expectTheSame(
        imageAlts, nextImageAlt,
        [](const QuotedAttribute& alt) {
            return Views{alt.quote, alt.value};
        },
        2);
}

/// The rewrite of one image tag, by ICU.
std::string imageTagByICU(const std::string& tag, const ImageResolver& resolveImage) {
    const std::vector<ICUMatch> sources = imageSources.matches(tag);
    if (sources.empty()) return tag;
    const auto& [before, groups] = sources.front();
    if (const auto url = imageSource(groups[3], resolveImage)) {
        const std::string source = groups[1] + groups[2] + HTML::escape(*url) + groups[2];
        return before + source + tag.substr(before.size() + groups[0].size());
    }
    const std::vector<ICUMatch> alts = imageAlts.matches(tag);
    if (alts.empty() || alts.front().groups[2].empty()) return "";
    return "<span class=\"missing-image\">" + alts.front().groups[2] + "</span>";
}

std::string sanitizeByICU(std::string html, const ImageResolver& resolveImage) {
    const auto nothing = [](const Groups&) { return std::string(); };
    html = blockedElements.replaced(html, nothing);
    html = blockedTags.replaced(html, nothing);
    html = eventAttributes.replaced(html, nothing);
    html = scriptURLs.replaced(html,
                               [](const Groups& groups) { return groups[1] + "=" + groups[2] + "#blocked:"; });
    return imageTags.replaced(html,
                              [&](const Groups& groups) { return imageTagByICU(groups[0], resolveImage); });
}

TEST(SanitizerDifferential, sanitizedTextsAreThoseOfICU) {
    const ImageResolver resolveImage = [](const std::string& path) {
        return path == "ok.png" || path == "a" ? std::optional("cid:'" + path + "'") : std::nullopt;
    };
    TextGenerator texts;
    std::size_t changed = 0;
    for (std::size_t i = 0; i < textCount; ++i) {
        const std::string text = texts.next();
        const std::string expected = sanitizeByICU(text, resolveImage);
        if (expected != text) ++changed;
        ASSERT_EQ(sanitizeHTML(text, resolveImage), expected) << testing::PrintToString(text);
    }
    EXPECT_GT(changed, textCount / 4) << "the texts have lost what the sanitizer looks for";
}

} // namespace
} // namespace quillmar::Markdown
