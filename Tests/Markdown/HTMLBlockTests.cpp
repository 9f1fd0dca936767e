#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(HTMLBlock, goesOnToABlankLine) {
    EXPECT_EQ(rendered("<div class=\"a\">\n*b*\n# c\n</div>\n\nd"),
              "<div class=\"a\">\n*b*\n# c\n</div>\n<p>d</p>\n");
    EXPECT_EQ(rendered("<pre>\na\n\n*b*\n</pre>"), "<pre>\na\n<p><em>b</em></p>\n</pre>\n");
}

TEST(HTMLBlock, beginsWithTheNameOfATag) {
    for (const std::string line : {"<a>*b*", "</a> *b*", "<a/>*b*", "<a", "<A-1 *b*", "<h1\t*b*", "<x-y>",
                                   "</div >", "<b>c</b> *d*", "<a\u00A0*b*"})
        EXPECT_EQ(rendered(line), line + "\n") << line;
}

TEST(HTMLBlock, isNothingElse) {
    EXPECT_EQ(rendered("<1a>"), "<p>&lt;1a&gt;</p>\n");
    EXPECT_EQ(rendered("< a>"), "<p>&lt; a&gt;</p>\n");
    EXPECT_EQ(rendered("<a_b>"), "<p>&lt;a_b&gt;</p>\n");
    EXPECT_EQ(rendered("<a/ b>"), "<p>&lt;a/ b&gt;</p>\n");
    EXPECT_EQ(rendered("<"), "<p>&lt;</p>\n");
    EXPECT_EQ(rendered("</"), "<p>&lt;/</p>\n");
    EXPECT_EQ(rendered("<!DOCTYPE html>"), "<p>&lt;!DOCTYPE html&gt;</p>\n");
    EXPECT_EQ(rendered("<?xml version=\"1.0\"?>"), "<p>&lt;?xml version=&quot;1.0&quot;?&gt;</p>\n");
    EXPECT_EQ(rendered("<![CDATA[a]]>"), "<p>&lt;![CDATA[a]]&gt;</p>\n");
    EXPECT_EQ(rendered("<é>"), "<p>&lt;é&gt;</p>\n");
    EXPECT_EQ(rendered("\\<div>"), "<p>&lt;div&gt;</p>\n");
}

TEST(HTMLBlock, mayBeIndentedAndKeepsItsSpaces) {
    EXPECT_EQ(rendered("   <div>\n     a  \n"), "   <div>\n     a  \n");
    EXPECT_EQ(rendered("\u00A0<div>"), "\u00A0<div>\n");
    EXPECT_EQ(rendered("    <div>"), "<pre><code>&lt;div&gt;\n</code></pre>\n");
}

TEST(HTMLBlock, endsAParagraph) {
    EXPECT_EQ(rendered("a\n<div>\nb"), "<p>a</p>\n<div>\nb\n");
    EXPECT_EQ(rendered("a\n<b>b</b> *c*"), "<p>a</p>\n<b>b</b> *c*\n");
    EXPECT_EQ(rendered("a <b>b</b>\nc"), "<p>a <b>b</b>\nc</p>\n");
}

TEST(HTMLBlock, endsWithItsContainer) {
    EXPECT_EQ(rendered("> <div>\n> *a*\n\n*b*"),
              "<blockquote>\n<div>\n*a*\n</blockquote>\n<p><em>b</em></p>\n");
    EXPECT_EQ(rendered("- <div>\n  *a*\n- b"), "<ul>\n<li><div>\n*a*</li>\n<li>b</li>\n</ul>\n");
}

TEST(HTMLBlock, losesReferenceDefinitions) {
    EXPECT_EQ(rendered("<div>\n[a]: b\n</div>\n\n[a]"), "<div>\n</div>\n<p><a href=\"b\">a</a></p>\n");
}

TEST(HTMLBlock, showsCharacterReferencesAsTheyStand) {
    EXPECT_EQ(rendered("<p>a &amp; b & c &lt; \" '"), "<p>a &amp; b & c &lt; \" '\n");
}

TEST(CommentBlock, goesOnToTheLineThatClosesIt) {
    EXPECT_EQ(rendered("<!-- a\n\n# b\n--> c\n*d*"), "<!-- a\n\n# b\n--> c\n<p><em>d</em></p>\n");
}

TEST(CommentBlock, mayCloseOnItsOwnLine) {
    EXPECT_EQ(rendered("<!-- a --> *b*\n*c*"), "<!-- a --> *b*\n<p><em>c</em></p>\n");
}

TEST(CommentBlock, mayCloseWithTheDashesThatOpenIt) {
    EXPECT_EQ(rendered("<!-->\na"), "<!-->\n<p>a</p>\n");
    EXPECT_EQ(rendered("<!--->\na"), "<!--->\n<p>a</p>\n");
}

TEST(CommentBlock, withoutEndHoldsTheRest) {
    EXPECT_EQ(rendered("<!-- a\n\n# b"), "<!-- a\n\n# b\n");
    EXPECT_EQ(rendered("<!--\n"), "<!--\n\n");
}

TEST(CommentBlock, withoutEndEndsWithItsContainer) {
    EXPECT_EQ(rendered("> <!--\n> a\n\nb -->"), "<blockquote>\n<!--\na\n</blockquote>\n<p>b --&gt;</p>\n");
    EXPECT_EQ(rendered("- <!--\n\n  a\n- b"), "<ul>\n<li><!--\n\na</li>\n<li><p>b</p></li>\n</ul>\n");
}

TEST(CommentBlock, endsAParagraph) {
    EXPECT_EQ(rendered("a\n  <!-- b -->\nc"), "<p>a</p>\n  <!-- b -->\n<p>c</p>\n");
    EXPECT_EQ(rendered("a\n    <!-- b -->\nc"), "<p>a\n\nc</p>\n");
}

TEST(CommentBlock, isFilteredLikeOtherHTML) {
    EXPECT_EQ(rendered("<!-- <script>a</script> b -->"), "<!--  b -->\n");
}

} // namespace
} // namespace quillmar
