#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(Heading, hasAsManyLevelsAsHashSigns) {
    EXPECT_EQ(rendered("# a\n## b\n### c\n#### d\n##### e\n###### f"),
              "<h1 id=\"a\">a</h1>\n<h2 id=\"b\">b</h2>\n<h3 id=\"c\">c</h3>\n"
              "<h4 id=\"d\">d</h4>\n<h5 id=\"e\">e</h5>\n<h6 id=\"f\">f</h6>\n");
}

TEST(Heading, doesNotHaveSevenLevels) { EXPECT_EQ(rendered("####### a"), "<p>####### a</p>\n"); }

TEST(Heading, needsASpaceBehindItsHashSigns) {
    EXPECT_EQ(rendered("#a"), "<p>#a</p>\n");
    EXPECT_EQ(rendered("#\ta"), "<p>#\ta</p>\n");
    EXPECT_EQ(rendered("#\u00A0a"), "<p>#\u00A0a</p>\n");
    EXPECT_EQ(rendered("\\# a"), "<p># a</p>\n");
}

TEST(Heading, losesTheWhiteSpaceAroundItsText) {
    EXPECT_EQ(rendered("#    a b  "), "<h1 id=\"a-b\">a b</h1>\n");
    EXPECT_EQ(rendered("# \t\u00A0\u3000a\u2009 "), "<h1 id=\"a\">a</h1>\n");
}

TEST(Heading, losesAClosingRun) {
    EXPECT_EQ(rendered("## a ##"), "<h2 id=\"a\">a</h2>\n");
    EXPECT_EQ(rendered("# a ######  "), "<h1 id=\"a\">a</h1>\n");
    EXPECT_EQ(rendered("# a\t#"), "<h1 id=\"a\">a</h1>\n");
    EXPECT_EQ(rendered("# a   #"), "<h1 id=\"a\">a</h1>\n");
}

TEST(Heading, losesOnlyTheLastClosingRun) {
    EXPECT_EQ(rendered("# a # b ##"), "<h1 id=\"a--b\">a # b</h1>\n");
    EXPECT_EQ(rendered("# a # #"), "<h1 id=\"a-\">a #</h1>\n");
    EXPECT_EQ(rendered("# ## #"), "<h1 id=\"\">##</h1>\n");
}

TEST(Heading, losesAClosingRunBeforeALineSeparator) {
    // "$" matches before a line terminator that ends the text.
    EXPECT_EQ(rendered("# a #\u2028"), "<h1 id=\"a\">a</h1>\n");
}

TEST(Heading, keepsHashSignsThatNoSpacePrecedes) {
    EXPECT_EQ(rendered("# a#"), "<h1 id=\"a\">a#</h1>\n");
    EXPECT_EQ(rendered("# a \\#"), "<h1 id=\"a-\">a #</h1>\n");
    EXPECT_EQ(rendered("# #a"), "<h1 id=\"a\">#a</h1>\n");
}

TEST(Heading, ofHashSignsOnlyIsEmpty) {
    EXPECT_EQ(rendered("#"), "<h1 id=\"\"></h1>\n");
    EXPECT_EQ(rendered("##  "), "<h2 id=\"\"></h2>\n");
    EXPECT_EQ(rendered("## ##"), "<h2 id=\"\"></h2>\n");
    EXPECT_EQ(rendered("### ########"), "<h3 id=\"\"></h3>\n");
}

TEST(Heading, mayBeIndentedByThreeSpaces) {
    EXPECT_EQ(rendered("   # a"), "<h1 id=\"a\">a</h1>\n");
    EXPECT_EQ(rendered("    # a"), "<pre><code># a\n</code></pre>\n");
    EXPECT_EQ(rendered("a\n    # b"), "<p>a\n# b</p>\n");
    EXPECT_EQ(rendered("\u00A0\u2003# a"), "<h1 id=\"a\">a</h1>\n");
}

TEST(Heading, endsAParagraphAndIsNotContinued) {
    EXPECT_EQ(rendered("a\n# b\nc"), "<p>a</p>\n<h1 id=\"b\">b</h1>\n<p>c</p>\n");
}

TEST(Heading, showsItsTextThroughTheInlineParser) {
    EXPECT_EQ(rendered("# Some *text*, `code` & more"),
              "<h1 id=\"some-text-code--more\">Some <em>text</em>, <code>code</code> &amp; more</h1>\n");
    EXPECT_EQ(rendered("## [a](b.md) ~~c~~"), "<h2 id=\"abmd-c\"><a href=\"b.md\">a</a> <del>c</del></h2>\n");
}

TEST(Heading, endingInABackslashKeepsIt) { EXPECT_EQ(rendered("# a\\"), "<h1 id=\"a\">a\\</h1>\n"); }

TEST(HeadingIdentifier, keepsLettersMarksNumbersHyphensAndUnderscores) {
    EXPECT_EQ(rendered("# Été 1½ Ⅷ -_x_- 花"), "<h1 id=\"été-1½-ⅷ--_x_--花\">Été 1½ Ⅷ -<em>x</em>- 花</h1>\n");
    EXPECT_EQ(rendered("# e\u0301 x\u20DD"), "<h1 id=\"e\u0301-x\u20DD\">e\u0301 x\u20DD</h1>\n");
}

TEST(HeadingIdentifier, dropsEverythingElse) {
    EXPECT_EQ(rendered("# 🚀 Launch: \"now\" & <b>here</b>!"),
              "<h1 id=\"-launch-now--bhereb\">🚀 Launch: &quot;now&quot; &amp; <b>here</b>!</h1>\n");
    EXPECT_EQ(rendered("# a\tb\u00A0c\u200Dd"), "<h1 id=\"abcd\">a\tb\u00A0c\u200Dd</h1>\n");
}

TEST(HeadingIdentifier, doesNotCollapseHyphens) {
    EXPECT_EQ(rendered("# a  --  b"), "<h1 id=\"a------b\">a  --  b</h1>\n");
}

TEST(HeadingIdentifier, isLoweredWithUnicodesFullMapping) {
    EXPECT_EQ(rendered("# İ"), "<h1 id=\"i\u0307\">İ</h1>\n");
    EXPECT_EQ(rendered("# ΟΔΟΣ"), "<h1 id=\"οδος\">ΟΔΟΣ</h1>\n");
    EXPECT_EQ(rendered("# Straẞe"), "<h1 id=\"straße\">Straẞe</h1>\n");
}

TEST(HeadingIdentifier, ofTheSameTextIsNumbered) {
    EXPECT_EQ(rendered("# a\n## A\n# *a*\n"),
              "<h1 id=\"a\">a</h1>\n<h2 id=\"a-1\">A</h2>\n<h1 id=\"a-2\"><em>a</em></h1>\n");
}

TEST(HeadingIdentifier, mayCollideWithANumberedOne) {
    EXPECT_EQ(
        rendered("# a\n# a\n# a-1\n# a-1"),
        "<h1 id=\"a\">a</h1>\n<h1 id=\"a-1\">a</h1>\n<h1 id=\"a-1\">a-1</h1>\n<h1 id=\"a-1-1\">a-1</h1>\n");
}

TEST(HeadingIdentifier, withNothingUsableIsEmptyAndThenNumbered) {
    EXPECT_EQ(rendered("# !\n# ?\n# #"), "<h1 id=\"\">!</h1>\n<h1 id=\"-1\">?</h1>\n<h1 id=\"-2\"></h1>\n");
}

TEST(HeadingIdentifier, isNumberedForCanonicallyEquivalentTexts) {
    EXPECT_EQ(rendered("# \u00E9\n# e\u0301"),
              "<h1 id=\"\u00E9\">\u00E9</h1>\n<h1 id=\"e\u0301-1\">e\u0301</h1>\n");
}

TEST(HeadingIdentifier, isSharedByAllHeadingsOfTheDocument) {
    EXPECT_EQ(rendered("> # a\n\n- # a\n\na\n==="),
              "<blockquote>\n<h1 id=\"a\">a</h1>\n</blockquote>\n"
              "<ul>\n<li><h1 id=\"a-1\">a</h1></li>\n</ul>\n<h1 id=\"a-2\">a</h1>\n");
}

TEST(HeadingIdentifier, startsAfreshWithEveryDocument) {
    const MarkdownRenderer renderer{};
    EXPECT_EQ(renderer.render("# a"), "<h1 id=\"a\">a</h1>\n");
    EXPECT_EQ(renderer.render("# a"), "<h1 id=\"a\">a</h1>\n");
}

TEST(SetextHeading, isAParagraphOverEqualsSigns) {
    EXPECT_EQ(rendered("My Title\n======"), "<h1 id=\"my-title\">My Title</h1>\n");
    EXPECT_EQ(rendered("a\n="), "<h1 id=\"a\">a</h1>\n");
}

TEST(SetextHeading, isOfLevelTwoOverHyphens) {
    EXPECT_EQ(rendered("a\n---"), "<h2 id=\"a\">a</h2>\n");
    EXPECT_EQ(rendered("a\n-"), "<h2 id=\"a\">a</h2>\n");
}

TEST(SetextHeading, takesAllLinesOfTheParagraph) {
    EXPECT_EQ(rendered("a *b\n  c*\n===\nd"), "<h1 id=\"a-bc\">a <em>b\nc</em></h1>\n<p>d</p>\n");
}

TEST(SetextHeading, isNotTrimmed) {
    EXPECT_EQ(rendered("  a  \n==="), "<h1 id=\"a--\">a  </h1>\n");
    EXPECT_EQ(rendered("\u00A0a\n---"), "<h2 id=\"a\">\u00A0a</h2>\n");
}

TEST(SetextHeading, underlineMayBeIndentedByThreeSpacesAndFollowedByWhiteSpace) {
    EXPECT_EQ(rendered("a\n   ===  "), "<h1 id=\"a\">a</h1>\n");
    EXPECT_EQ(rendered("a\n\u00A0---\t"), "<h2 id=\"a\">a</h2>\n");
    EXPECT_EQ(rendered("a\n    ==="), "<p>a\n===</p>\n");
    EXPECT_EQ(rendered("a\n    ---"), "<p>a\n---</p>\n");
}

TEST(SetextHeading, underlineHasOneKindOfCharacter) {
    EXPECT_EQ(rendered("a\n=-="), "<p>a\n=-=</p>\n");
    EXPECT_EQ(rendered("a\n== ="), "<p>a\n== =</p>\n");
    EXPECT_EQ(rendered("a\n- - -"), "<p>a</p>\n<hr>\n");
}

TEST(SetextHeading, underlineIsNotEmpty) {
    EXPECT_EQ(rendered("a\n\u00A0"), "<p>a\n</p>\n"); // not blank, but nothing is left when it is trimmed
    EXPECT_EQ(rendered("a\n\u3000\nb"), "<p>a\n\u3000\nb</p>\n");
}

TEST(SetextHeading, needsAParagraph) {
    EXPECT_EQ(rendered("==="), "<p>===</p>\n");
    EXPECT_EQ(rendered("a\n\n==="), "<p>a</p>\n<p>===</p>\n");
    EXPECT_EQ(rendered("# a\n==="), "<h1 id=\"a\">a</h1>\n<p>===</p>\n");
    EXPECT_EQ(rendered("===\n==="), "<h1 id=\"\">===</h1>\n");
}

TEST(SetextHeading, mayStandOverALazyUnderlineInAQuote) {
    EXPECT_EQ(rendered("> a\n==="), "<blockquote>\n<h1 id=\"a\">a</h1>\n</blockquote>\n");
    EXPECT_EQ(rendered("> a\n-"), "<blockquote>\n<h2 id=\"a\">a</h2>\n</blockquote>\n");
    EXPECT_EQ(rendered("> a\n---"), "<blockquote>\n<p>a</p>\n</blockquote>\n<hr>\n");
}

TEST(SetextHeading, mayStandInAListItem) {
    EXPECT_EQ(rendered("- a\n==="), "<ul>\n<li><h1 id=\"a\">a</h1></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  ---"), "<ul>\n<li><h2 id=\"a\">a</h2></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n---"), "<ul>\n<li>a</li>\n</ul>\n<hr>\n");
}

TEST(ThematicBreak, isThreeOrMoreEqualMarks) {
    for (const char* line :
         {"---", "***", "___", "- - -", "*  *  *", " _ _ _ _", "----------", "**  *", "   ***"})
        EXPECT_EQ(rendered(line), "<hr>\n") << line;
}

TEST(ThematicBreak, mayHoldAnyWhiteSpace) {
    EXPECT_EQ(rendered("-\t-\t-"), "<hr>\n");
    EXPECT_EQ(rendered("\u00A0*\u3000**"), "<hr>\n");
}

TEST(ThematicBreak, isNothingElse) {
    EXPECT_EQ(rendered("--"), "<p>--</p>\n");
    EXPECT_EQ(rendered("-*-"), "<p>-*-</p>\n");
    EXPECT_EQ(rendered("***a"), "<p>***a</p>\n");
    EXPECT_EQ(rendered("+++"), "<p>+++</p>\n");
    EXPECT_EQ(rendered("==="), "<p>===</p>\n");
    EXPECT_EQ(rendered("    ---"), "<pre><code>---\n</code></pre>\n");
}

TEST(ThematicBreak, comesBeforeAList) {
    EXPECT_EQ(rendered("* * *"), "<hr>\n");
    EXPECT_EQ(rendered("- a\n- - -\n- b"), "<ul>\n<li>a</li>\n</ul>\n<hr>\n<ul>\n<li>b</li>\n</ul>\n");
    EXPECT_EQ(rendered("* a\n***"), "<ul>\n<li>a</li>\n</ul>\n<hr>\n");
}

TEST(ThematicBreak, mayStandInAListItem) {
    EXPECT_EQ(rendered("- ***"), "<ul>\n<li><hr></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  ***"), "<ul>\n<li>a\n<hr></li>\n</ul>\n");
}

} // namespace
} // namespace quillmar
