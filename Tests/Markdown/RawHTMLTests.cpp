#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(RawHTML, losesElementsThatRunCodeOrLoadFrames) {
    for (const std::string name : {"script", "style", "iframe", "frame", "frameset", "object", "embed",
                                   "applet", "form", "textarea", "select", "button"}) {
        std::string markdown = "<p>a<";
        markdown.append(name).append(" b=\"c\">d <i>e</i></").append(name).append(">f");
        EXPECT_EQ(rendered(markdown), "<p>af\n") << name;
    }
}

TEST(RawHTML, losesUnclosedElementsToTheEndOfTheBlock) {
    EXPECT_EQ(rendered("<div>a</div><style>b\nc\n\nd"), "<div>a</div>\n<p>d</p>\n");
    EXPECT_EQ(rendered("<script>\na\n\nb\n</script>"), "\n<p>b</p>\n\n");
    EXPECT_EQ(rendered("<p>a<script/>b</p>"), "<p>a\n");
}

TEST(RawHTML, unclosedElementEndsBeforeTheLastLineBreakOfTheBlock) {
    // "$" matches before a line terminator that ends the text.
    EXPECT_EQ(rendered("<!-- <script>a\n"), "<!-- \n\n");
    EXPECT_EQ(rendered("<p><script>a\u2028"), "<p>\u2028\n");
}

TEST(RawHTML, losesDangerousTagsInCapitals) {
    EXPECT_EQ(rendered("<p>a<IFRAME SRC=\"b\"></iframe>c</p>"), "<p>ac</p>\n");
    EXPECT_EQ(rendered("<p>a<IFRAME SRC=\"b\">c</p>"), "<p>a\n");
    EXPECT_EQ(rendered("<p>a <Link rel=b><META c><bAsE d><inPUT>e</p>"), "<p>a e</p>\n");
}

TEST(RawHTML, losesTagsThatAreLeftOver) {
    EXPECT_EQ(rendered("</script>a</p>"), "a</p>\n");
    EXPECT_EQ(rendered("<p>a</form></style ></object\n>b"), "<p>ab\n");
    EXPECT_EQ(rendered("<p>a</select></button></textarea></frameset>"),
              "<p>a</select></button></textarea></frameset>\n");
}

TEST(RawHTML, keepsTagsWhoseNamesOnlyBeginDangerously) {
    EXPECT_EQ(rendered("<scripts>a</scripts>"), "<scripts>a</scripts>\n");
    EXPECT_EQ(rendered("<p><formula><basefont><linked>"), "<p><formula><basefont><linked>\n");
    EXPECT_EQ(rendered("<p>a<script-b>c</script-b>d"), "<p>a\n");
}

TEST(RawHTML, foldsCaseBeyondASCII) {
    EXPECT_EQ(rendered("<p>a<\u017Fcript>b</script>c"), "<p>ac\n");
    EXPECT_EQ(rendered("<p>a<\uFB06yle>b</STYLE>c"), "<p>ac\n"); // the ligature of s and t
    EXPECT_EQ(rendered("<p>a<lin\u212A>c"), "<p>ac\n");          // the Kelvin sign
    EXPECT_EQ(rendered("<a href=\"java\u017Fcript:b\">c</a>"), "<a href=\"#blocked:b\">c</a>\n");
}

TEST(RawHTML, losesEventAttributesAndTheSpaceBeforeThem) {
    EXPECT_EQ(rendered("<a href=\"b\" onclick=\"c()\" id=d>e</a>"), "<a href=\"b\" id=d>e</a>\n");
    EXPECT_EQ(rendered("<a \n ONCLICK = 'c \"d\"'>e</a>"), "<a>e</a>\n");
    EXPECT_EQ(rendered("<a onclick=c() onload=d>e</a>"), "<a>e</a>\n");
    EXPECT_EQ(rendered("<p>words like on = x</p>"), "<p>words like on = x</p>\n");
    EXPECT_EQ(rendered("<p>words like one = x</p>"), "<p>words like>\n"); // text is not told from tags
    EXPECT_EQ(rendered("<a data-onclick=\"b\">c</a>"), "<a data-onclick=\"b\">c</a>\n");
    EXPECT_EQ(rendered("<p><svg/onload=a>"), "<p><svg/onload=a>\n"); // no white space, no match
}

TEST(RawHTML, blocksScriptSchemes) {
    EXPECT_EQ(rendered("<a href=\"javascript:b()\">c</a>"), "<a href=\"#blocked:b()\">c</a>\n");
    EXPECT_EQ(rendered("<a HREF = ' JavaScript:b'>c</a>"), "<a HREF='#blocked:b'>c</a>\n");
    EXPECT_EQ(rendered("<a href=vbscript:b>c</a>"), "<a href=#blocked:b>c</a>\n");
    EXPECT_EQ(rendered("<a href=\"data:text:b\">c</a>"), "<a href=\"#blocked:b\">c</a>\n");
    EXPECT_EQ(rendered("<svg xlink:href=\"javascript:b\" action=javascript: formaction='javascript:'>"),
              "<svg xlink:href=\"#blocked:b\" action=#blocked: formaction='#blocked:'>\n");
}

TEST(RawHTML, keepsOtherSchemes) {
    for (const std::string html :
         {"<a href=\"x:b\" title=\"javascript:c\">javascript:</a>\n", "<a href=\"data:text/html,b\">c</a>\n",
          "<a href=\"x javascript:b\">c</a>\n"})
        EXPECT_EQ(rendered(html), html);
}

TEST(RawHTML, isFilteredOnce) {
    // Every pass looks once at what the one before left. The page is shown with scripts off for that reason.
    EXPECT_EQ(rendered("<p><scr<script></script>ipt>a</p>"), "<p>a</p>\n"); // the second pass meets it
    EXPECT_EQ(rendered("<p><sel<script></script>ect>a</p>"), "<p><select>a</p>\n");
    EXPECT_EQ(rendered("<p o onx=\"1\"nclick=\"a\">"), "<p onclick=\"a\">\n");
}

TEST(RawHTML, isFilteredBlockByBlock) {
    EXPECT_EQ(rendered("<div>\n<script>\n</div>\n\n<div>\na\n</div>"), "<div>\n\n<div>\na\n</div>\n");
}

TEST(InlineHTML, isCopied) {
    EXPECT_EQ(rendered("a <b>c</b> <i class='d' e=f g>*h*</i><br/>"),
              "<p>a <b>c</b> <i class='d' e=f g><em>h</em></i><br/></p>\n");
    EXPECT_EQ(rendered("a <x-1\tb:c.d-e = \"<&\" />"), "<p>a <x-1\tb:c.d-e = \"<&\" /></p>\n");
    EXPECT_EQ(rendered("a </b >"), "<p>a </b ></p>\n");
}

TEST(InlineHTML, isOnlyWhatMatchesTheTagPattern) {
    EXPECT_EQ(rendered("a <1b>"), "<p>a &lt;1b&gt;</p>\n");
    EXPECT_EQ(rendered("a <b c=>"), "<p>a &lt;b c=&gt;</p>\n");
    EXPECT_EQ(rendered("a <b 'c'>"), "<p>a &lt;b &#39;c&#39;&gt;</p>\n");
    EXPECT_EQ(rendered("a <b c=\"d\"e>"), "<p>a &lt;b c=&quot;d&quot;e&gt;</p>\n");
    EXPECT_EQ(rendered("a <b c=d`e>"), "<p>a &lt;b c=d`e&gt;</p>\n");
    EXPECT_EQ(rendered("a < b > c"), "<p>a &lt; b &gt; c</p>\n");
    EXPECT_EQ(rendered("a <b"), "<p>a &lt;b</p>\n");
    EXPECT_EQ(rendered("1 < 2 && 3 > 2"), "<p>1 &lt; 2 &amp;&amp; 3 &gt; 2</p>\n");
}

TEST(InlineHTML, endsAtTheFirstGreaterThanSign) {
    EXPECT_EQ(rendered("a <b c=\"d>e\">"), "<p>a &lt;b c=&quot;d&gt;e&quot;&gt;</p>\n");
}

TEST(InlineHTML, maySpanLines) {
    EXPECT_EQ(rendered("a <b\n  c=\"d\ne\">f</b\n    >"), "<p>a <b\nc=\"d\ne\">f</b\n></p>\n");
}

TEST(InlineHTML, tagsAreFilteredOneByOne) {
    EXPECT_EQ(rendered("a <script>b < c</script> *d*"), "<p>a b &lt; c <em>d</em></p>\n");
    EXPECT_EQ(rendered("a <button>b</button>"), "<p>a b</button></p>\n");
    EXPECT_EQ(rendered("a <a href=\"javascript:b\" onclick=c>d</a>"),
              "<p>a <a href=\"#blocked:b\">d</a></p>\n");
}

TEST(InlineHTML, withAnAddressInAnAttributeIsATag) {
    EXPECT_EQ(rendered("a <a href=\"https://b.c/@d\">e</a>"), "<p>a <a href=\"https://b.c/@d\">e</a></p>\n");
    EXPECT_EQ(rendered("a <a href=\"mailto:b@c.d\">e</a>"), "<p>a <a href=\"mailto:b@c.d\">e</a></p>\n");
}

TEST(InlineHTML, hidesDelimitersInItsAttributes) {
    EXPECT_EQ(rendered("*a <b c=\"*\">d*"), "<p><em>a <b c=\"*\">d</em></p>\n");
    EXPECT_EQ(rendered("a <b c=\"`\">`"), "<p>a <b c=\"`\">`</p>\n");
}

TEST(InlineHTML, comesAfterCode) {
    EXPECT_EQ(rendered("`<b c=\"`\">"), "<p><code>&lt;b c=&quot;</code>&quot;&gt;</p>\n");
}

TEST(InlineComment, isDropped) {
    EXPECT_EQ(rendered("a <!-- *b* <c> -- > d --> e"), "<p>a  e</p>\n");
    EXPECT_EQ(rendered("a<!-- b\nc -->d"), "<p>ad</p>\n");
    EXPECT_EQ(rendered("a<!---->b<!-- --->c"), "<p>abc</p>\n");
}

TEST(InlineComment, doesNotCloseWithTheDashesThatOpenIt) {
    EXPECT_EQ(rendered("a <!-->b-->c"), "<p>a c</p>\n");
    EXPECT_EQ(rendered("a <!-->b"), "<p>a &lt;!--&gt;b</p>\n");
    EXPECT_EQ(rendered("a <!--->b"), "<p>a &lt;!---&gt;b</p>\n");
}

TEST(InlineComment, withoutEndIsText) {
    EXPECT_EQ(rendered("a <!-- *b*"), "<p>a &lt;!-- <em>b</em></p>\n");
    EXPECT_EQ(rendered("a <!-- b>\n\n-->"), "<p>a &lt;!-- b&gt;</p>\n<p>--&gt;</p>\n");
    EXPECT_EQ(rendered("a <!--b@c.d>"), "<p>a &lt;!--b@c.d&gt;</p>\n");
}

TEST(InlineComment, doesNotHideAnEscape) {
    EXPECT_EQ(rendered("a \\<!-- b -->"), "<p>a &lt;!-- b --&gt;</p>\n");
}

} // namespace
} // namespace quillmar
