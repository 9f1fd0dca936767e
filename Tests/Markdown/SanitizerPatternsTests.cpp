#include "Markdown/SanitizerPatterns.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace quillmar::Markdown::SanitizerPatterns {
namespace {

using Strings = std::vector<std::string>;

Range rangeOf(const Range& match) { return match; }
Range rangeOf(const ScriptURL& match) { return match.range; }
Range rangeOf(const QuotedAttribute& match) { return match.range; }

/// The texts of all matches.
template <typename Next>
Strings matches(Next next, std::string_view text) {
    Strings found;
    for (auto match = next(text, 0); match; match = next(text, rangeOf(*match).end)) {
        const Range range = rangeOf(*match);
        found.emplace_back(text.substr(range.start, range.end - range.start));
    }
    return found;
}

Strings blockedElements(std::string_view text) { return matches(nextBlockedElement, text); }
Strings blockedTags(std::string_view text) { return matches(nextBlockedTag, text); }
Strings eventAttributes(std::string_view text) { return matches(nextEventAttribute, text); }
Strings scriptURLs(std::string_view text) { return matches(nextScriptURL, text); }
Strings imageTags(std::string_view text) { return matches(nextImageTag, text); }
Strings imageSources(std::string_view text) { return matches(nextImageSource, text); }
Strings imageAlts(std::string_view text) { return matches(nextImageAlt, text); }

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (; count > 0; --count) result += text;
    return result;
}

/// Times that hostile texts repeat something: with so many, work that grows with the square does not end. Such
/// matches are only counted, for nobody wants to read them.
constexpr std::size_t many = 300'000;

TEST(BlockedElement, reachesToItsClosingTag) {
    EXPECT_EQ(blockedElements("a<script>b</script>c<form>d</form>e"),
              (Strings{"<script>b</script>", "<form>d</form>"}));
    EXPECT_EQ(blockedElements("<STYLE x=1>\n</style \n>c"), Strings{"<STYLE x=1>\n</style \n>"});
}

TEST(BlockedElement, isOneOfTwelveWords) {
    for (const std::string name : {"script", "style", "iframe", "frame", "frameset", "object", "embed",
                                   "applet", "form", "textarea", "select", "button"})
        EXPECT_EQ(blockedElements("<" + name + "></" + name + "></b>"),
                  Strings{"<" + name + "></" + name + ">"});
    for (const std::string_view text :
         {"<input>", "<forms>", "<for>", "< form>", "</form>", "<framesets>", "<textareas>", "<\u200Bform>",
          "<form\u0301>", "<form_>", "<form2>", "<"})
        EXPECT_EQ(blockedElements(text), Strings{}) << text;
}

TEST(BlockedElement, aNameEndsAtPunctuation) {
    EXPECT_EQ(blockedElements("<form-x></form>"), Strings{"<form-x></form>"});
    EXPECT_EQ(blockedElements("<form"), Strings{"<form"});
}

TEST(BlockedElement, isClosedOnlyByANameOfItsOwnAndWhiteSpace) {
    for (const std::string_view text :
         {"<form></forms>x", "<form></form x>x", "<form>< /form>x", "<form></ form>x", "<frame></frameset>x",
          "<frameset></frame>x", "<form></form", "<form></form "})
        EXPECT_EQ(blockedElements(text), Strings{std::string(text)});
    EXPECT_EQ(blockedElements("<form></form\u2028\u00A0>x"), Strings{"<form></form\u2028\u00A0>"});
}

TEST(BlockedElement, withoutClosingTagReachesToALineBreakAtTheEnd) {
    for (const std::string end : {"\n", "\r", "\r\n", "\f", "\v", "\u0085", "\u2028", "\u2029"}) {
        EXPECT_EQ(blockedElements("<form>x" + end), Strings{"<form>x"});
        EXPECT_EQ(blockedElements("<form" + end), Strings{"<form"});
        EXPECT_EQ(blockedElements("<form>" + end + "x"), Strings{"<form>" + end + "x"});
    }
    EXPECT_EQ(blockedElements("<form>\n\r"), Strings{"<form>\n"}); // two line breaks
    EXPECT_EQ(blockedElements("<form>\u0084"), Strings{"<form>\u0084"});
}

TEST(BlockedElement, takesLinearTimeOverWhatDoesNotCloseIt) {
    const std::string text = "<script>" + repeated("</script ", many) + std::string(many, ' ');
    EXPECT_EQ(nextBlockedElement(text, 0), (Range{0, text.size()}));
    EXPECT_EQ(blockedElements(repeated("<scripts", many) + repeated("<fo", many)).size(), 0U);
}

TEST(BlockedTag, opensOrCloses) {
    EXPECT_EQ(blockedTags("<input type=x>a</script\n>b<META/>"),
              (Strings{"<input type=x>", "</script\n>", "<META/>"}));
    EXPECT_EQ(blockedTags("<link <base>"), Strings{"<link <base>"});
}

TEST(BlockedTag, isOneOfTwelveWords) {
    for (const std::string name : {"script", "style", "iframe", "frame", "object", "embed", "applet", "form",
                                   "input", "link", "meta", "base"})
        EXPECT_EQ(blockedTags("<" + name + ">"), Strings{"<" + name + ">"});
    for (const std::string_view text : {"<frameset>", "<textarea>", "</select>", "<button>", "<//form>",
                                        "</ form>", "<a>", "<form", "<bases>"})
        EXPECT_EQ(blockedTags(text), Strings{}) << text;
}

TEST(BlockedTag, takesLinearTimeWithoutEnd) {
    EXPECT_EQ(blockedTags(repeated("<input ", many)).size(), 0U);
    EXPECT_EQ(blockedTags(repeated("</", many)).size(), 0U);
}

TEST(EventAttribute, hasAQuotedOrPlainValue) {
    EXPECT_EQ(eventAttributes("<a onx=\"1 >\" ony='2 \"' onz=3>"),
              (Strings{" onx=\"1 >\"", " ony='2 \"'", " onz=3"}));
    EXPECT_EQ(eventAttributes("a \t\n onABC \n = \r\n b c"), Strings{" \t\n onABC \n = \r\n b"});
}

TEST(EventAttribute, aQuoteWithoutItsLikeIsAPlainValue) {
    EXPECT_EQ(eventAttributes(" onx=\"a b"), Strings{" onx=\"a"});
    EXPECT_EQ(eventAttributes(" onx='a\" b"), Strings{" onx='a\""});
}

TEST(EventAttribute, needsWhiteSpaceANameAndAValue) {
    for (const std::string_view text :
         {"onx=1", "/onx=1", " on=1", " xon=1", " o=1", " nox=1", " onx", " onx=", " onx= >", " on1=1",
          " on-x=1", " onx y=1", " on\u00E9=1", " on\u0130=1", "=", "=="})
        EXPECT_EQ(eventAttributes(text), Strings{}) << text;
}

TEST(EventAttribute, aNameMayHoldLettersThatFoldToASCII) {
    EXPECT_EQ(eventAttributes(" on\u017F\u212A=1"), Strings{" on\u017F\u212A=1"});
    EXPECT_EQ(eventAttributes(" on\uFB06=1"), Strings{}); // two letters are no letter
}

TEST(EventAttribute, aValueMayBeginWithAnEqualsSign) {
    EXPECT_EQ(eventAttributes(" onx==1"), Strings{" onx==1"});
    EXPECT_EQ(eventAttributes(" onx= = 1"), Strings{" onx= ="});
}

TEST(EventAttribute, doesNotReachBehindThePosition) {
    EXPECT_EQ(nextEventAttribute("  onx=1", 1), (Range{1, 7}));
    EXPECT_EQ(nextEventAttribute(" onx=1", 1), std::nullopt);
    EXPECT_EQ(nextEventAttribute(" onx=1", 4), std::nullopt);
    EXPECT_EQ(nextEventAttribute(" onx=1", 6), std::nullopt);
}

TEST(EventAttribute, takesLinearTimeOverWhatHasNoValue) {
    EXPECT_EQ(eventAttributes(std::string(many, ' ') + "onx" + std::string(many, ' ')).size(), 0U);
    EXPECT_EQ(eventAttributes(repeated("  onx  ", many)).size(), 0U);
    EXPECT_EQ(eventAttributes(repeated("   =", many) + std::string(many, ' ')).size(), 0U);
    EXPECT_EQ(eventAttributes(" on" + std::string(many, 'n') + repeated("=", many) + ">").size(), 1U);
    EXPECT_EQ(eventAttributes(" on" + std::string(many, 'n')).size(), 0U);
}

TEST(EventAttribute, takesLinearTimeOverQuotesThatNothingCloses) {
    EXPECT_EQ(eventAttributes(repeated(" onx=\"", many + 1)).size(), many / 2 + 1);
    EXPECT_EQ(eventAttributes(repeated(" onx='\"", many)).size(), many / 2);
    EXPECT_EQ(eventAttributes(" onx=\"" + repeated(" onx=a", many)).size(), many + 1);
}

TEST(ScriptURL, hasANameAndAQuote) {
    const auto url = nextScriptURL("<a xlink:href\n=\n'\nJavaScript:x'>", 0);
    ASSERT_TRUE(url);
    EXPECT_EQ(url->range, (Range{3, 29}));
    EXPECT_EQ(url->name, "xlink:href");
    EXPECT_EQ(url->quote, "'");
    EXPECT_EQ(nextScriptURL("src=vbscript:", 0)->quote, "");
}

TEST(ScriptURL, isInOneOfFiveAttributes) {
    for (const std::string name : {"href", "src", "action", "formaction", "xlink:href"})
        EXPECT_EQ(scriptURLs(" " + name + "=javascript:x"), Strings{name + "=javascript:"});
    for (const std::string_view text : {"ref=javascript:", "title=javascript:", "=javascript:",
                                        "href:javascript:", "href x=javascript:", "href=='javascript:"})
        EXPECT_EQ(scriptURLs(text), Strings{}) << text;
}

TEST(ScriptURL, aNameMayEndAnotherOne) {
    EXPECT_EQ(scriptURLs("data-src=javascript:"), Strings{"src=javascript:"});
    EXPECT_EQ(scriptURLs("reaction=javascript:"), Strings{"action=javascript:"});
}

TEST(ScriptURL, hasOneOfThreeSchemes) {
    for (const std::string scheme : {"javascript:", "VBSCRIPT:", "data:text:", "java\u017Fcript:"})
        EXPECT_EQ(scriptURLs("src=\"" + scheme + "x"), Strings{"src=\"" + scheme});
    for (const std::string scheme :
         {"javascript", "javascripts:", "data:text/html", "java script:", "''javascript:"})
        EXPECT_EQ(scriptURLs("src=" + scheme), Strings{}) << scheme;
}

TEST(ScriptURL, doesNotReachBehindThePosition) {
    EXPECT_EQ(nextScriptURL("formaction=javascript:", 1)->name, "action");
    EXPECT_EQ(nextScriptURL("action=javascript:", 1), std::nullopt);
    EXPECT_EQ(scriptURLs("href=javascript:href=javascript:"),
              (Strings{"href=javascript:", "href=javascript:"}));
}

TEST(ScriptURL, takesLinearTimeOverWhiteSpace) {
    EXPECT_EQ(scriptURLs("href=" + std::string(many, ' ')).size(), 0U);
    EXPECT_EQ(scriptURLs("href" + std::string(many, ' ')).size(), 0U);
    EXPECT_EQ(scriptURLs(repeated("href  =  \"  ", many)).size(), 0U);
}

TEST(ImageTag, reachesToTheFirstGreaterThan) {
    EXPECT_EQ(imageTags("a<img src='>'><IMG/><\u0130mg>"), (Strings{"<img src='>", "<IMG/>"}));
    for (const std::string_view text : {"<image>", "</img>", "<img", "< img>", "<img\u0301>", "<img_>", "<im>"})
        EXPECT_EQ(imageTags(text), Strings{}) << text;
}

TEST(ImageTag, takesLinearTimeWithoutEnd) { EXPECT_EQ(imageTags(repeated("<img ", many)).size(), 0U); }

TEST(ImageSourceAttribute, hasANameAQuoteAndAValue) {
    const auto source = nextImageSource("<img SRC =\n'a=b' x>", 0);
    ASSERT_TRUE(source);
    EXPECT_EQ(source->range, (Range{5, 16}));
    EXPECT_EQ(source->name, "SRC =\n");
    EXPECT_EQ(source->quote, "'");
    EXPECT_EQ(source->value, "a=b");
    EXPECT_EQ(nextImageSource("src=''", 0)->value, "");
}

TEST(ImageSourceAttribute, beginsAWord) {
    EXPECT_EQ(imageSources("data-src='a'"), Strings{"src='a'"});
    EXPECT_EQ(imageSources("-\u0301src='a'"), Strings{"src='a'"});
    for (const std::string_view text :
         {"xsrc='a'", "_src='a'", "x\u0301\u200Dsrc='a'", "\u00E9src='a'", "srcset='a'"})
        EXPECT_EQ(imageSources(text), Strings{}) << text;
}

TEST(ImageSourceAttribute, looksBehindThePositionForTheWord) {
    EXPECT_EQ(nextImageSource("xsrc='a'", 1), std::nullopt);
    EXPECT_EQ(nextImageSource("-src='a'", 1)->range, (Range{1, 8}));
    EXPECT_EQ(nextImageSource("-src='a'", 2), std::nullopt);
}

TEST(ImageSourceAttribute, holdsNoQuoteOfAnyKind) {
    EXPECT_EQ(imageSources("src='a\"b' src=\"c\""), Strings{"src=\"c\""});
    EXPECT_EQ(imageSources("src=a src='b"), Strings{});
}

TEST(ImageSourceAttribute, takesLinearTimeOverQuotesThatNothingCloses) {
    EXPECT_EQ(imageSources(repeated("src=\"", many)).size(), many / 2);
    EXPECT_EQ(imageSources(repeated("src=\"'", many)).size(), 0U);
    EXPECT_EQ(imageSources(repeated("src=", many)).size(), 0U);
    EXPECT_EQ(imageSources("src='" + repeated("src=", many)).size(), 0U);
}

TEST(ImageSourceAttribute, takesLinearTimeOverMarks) {
    EXPECT_EQ(imageSources("x" + repeated("\u0301", many) + "src='a'").size(), 0U);
    EXPECT_EQ(imageSources("x" + repeated("\u0301src=", many)).size(), 0U);
}

TEST(ImageAltAttribute, hasAValue) {
    EXPECT_EQ(nextImageAlt("<img alt = \"a & b\">", 0)->value, "a & b");
    EXPECT_EQ(imageAlts("data-ALT='a' alt=b salt='c'"), Strings{"ALT='a'"});
}

} // namespace
} // namespace quillmar::Markdown::SanitizerPatterns
