#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillmar {
namespace {

/// Finds "pic.png" only.
std::optional<std::string> findsOne(const std::string& path) {
    if (path == "pic.png") return "cid:asset-0";
    return std::nullopt;
}

/// Finds everything.
std::optional<std::string> findsAll(const std::string& path) { return "cid:" + path; }

/// The paths that \p markdown asks for.
std::vector<std::string> askedFor(const std::string& markdown) {
    std::vector<std::string> paths;
    rendered(markdown, [&paths](const std::string& path) {
        paths.push_back(path);
        return std::optional<std::string>();
    });
    return paths;
}

std::string missing(std::string_view title, std::string_view text) {
    std::string html = "<p><span class=\"missing-image\" title=\"";
    html += title;
    html += "\">";
    html += text;
    return html += "</span></p>\n";
}

using Paths = std::vector<std::string>;

TEST(Image, isShownWhenItIsFound) {
    EXPECT_EQ(rendered("![a](pic.png)", findsOne), "<p><img src=\"cid:asset-0\" alt=\"a\"></p>\n");
    EXPECT_EQ(rendered("a ![](pic.png) b", findsOne), "<p>a <img src=\"cid:asset-0\" alt=\"\"> b</p>\n");
}

TEST(Image, mayHaveATitle) {
    EXPECT_EQ(rendered("![a](pic.png \"b & 'c'\")", findsOne),
              "<p><img src=\"cid:asset-0\" alt=\"a\" title=\"b &amp; &#39;c&#39;\"></p>\n");
    EXPECT_EQ(rendered("![a](pic.png '')", findsOne),
              "<p><img src=\"cid:asset-0\" alt=\"a\" title=\"\"></p>\n");
}

TEST(Image, mayBeAReference) {
    const std::string definition = "[pic]: pic.png (t)\n\n";
    const std::string image = "<p><img src=\"cid:asset-0\" alt=\"pic\" title=\"t\"></p>\n";
    EXPECT_EQ(rendered(definition + "![pic]", findsOne), image);
    EXPECT_EQ(rendered(definition + "![pic][]", findsOne), image);
    EXPECT_EQ(rendered(definition + "![pic][PIC]", findsOne), image);
    EXPECT_EQ(rendered(definition + "![pac]", findsOne), "<p>![pac]</p>\n");
}

TEST(Image, alternativeTextHasNoMarkup) {
    EXPECT_EQ(rendered("![*a* __b__ `c` ~~d~~ [e] \\* \"<&](pic.png)", findsOne),
              "<p><img src=\"cid:asset-0\" alt=\"a b c d e \\ &quot;&lt;&amp;\"></p>\n");
    EXPECT_EQ(rendered("![a [b](c) ![d](e)](pic.png)", findsOne),
              "<p><img src=\"cid:asset-0\" alt=\"a b(c) !d(e)\"></p>\n");
}

TEST(Image, alternativeTextMaySpanLines) {
    EXPECT_EQ(rendered("![a  \nb](pic.png)", findsOne), "<p><img src=\"cid:asset-0\" alt=\"a  \nb\"></p>\n");
}

TEST(Image, sourceIsEscaped) {
    EXPECT_EQ(rendered("![a](b)", [](const std::string&) { return std::optional<std::string>("x\"&'<>"); }),
              "<p><img src=\"x&quot;&amp;&#39;&lt;&gt;\" alt=\"a\"></p>\n");
}

TEST(Image, thatIsMissingIsSaidToBe) {
    EXPECT_EQ(rendered("![a *b*](c.png)", findsOne), missing("c.png", "a b"));
    EXPECT_EQ(rendered("![a](c&%20d.png \"e\")", findsOne), missing("c&amp;%20d.png", "a"));
    EXPECT_EQ(rendered("![a]()", findsOne), missing("", "a"));
    EXPECT_EQ(rendered("![a](pic.png)"), missing("pic.png", "a"));
}

TEST(Image, thatIsMissingAndHasNoTextIsAnImage) {
    EXPECT_EQ(rendered("![](c.png)", findsOne), missing("c.png", "Image"));
    EXPECT_EQ(rendered("![*_*](c.png)", findsOne), missing("c.png", "Image"));
}

TEST(Image, fromElsewhereIsLeftAsItIs) {
    for (const std::string url :
         {"https://a.b/c%20d", "http://a", "HTTPS://A", "data:image/png;base64,AA==", "DATA:IMAGE/svg+xml,a"}) {
        EXPECT_EQ(rendered("![a](" + url + ")", findsAll), "<p><img src=\"" + url + "\" alt=\"a\"></p>\n");
        EXPECT_EQ(askedFor("![a](" + url + ")"), Paths()) << url;
    }
}

TEST(Image, ofAnotherSchemeIsMissing) {
    for (const std::string url : {"file:///a.png", "javascript:a", "data:text/html,a", "cid:asset-0", "a:b.png",
                                  "a/b:c.png", "../a:b", ":", "C:\\a.png", "https:a"}) {
        EXPECT_EQ(rendered("![a](" + url + ")", findsAll), missing(url, "a"));
        EXPECT_EQ(askedFor("![a](" + url + ")"), Paths()) << url;
    }
}

TEST(Image, colonNextToACombiningMarkIsAColon) {
    EXPECT_EQ(rendered("![a](file:\u0301b)", findsAll), missing("file:\u0301b", "a"));
    EXPECT_EQ(rendered("![a](file\u0600:b)", findsAll), missing("file\u0600:b", "a"));
}

TEST(Image, pathMayHoldAColonBehindADotAndASlash) {
    EXPECT_EQ(askedFor("![a](./b:c.png)"), Paths{"./b:c.png"});
}

TEST(Image, pathIsAskedForWithoutPercentEncoding) {
    EXPECT_EQ(askedFor("![a](b%20c%2Fd%C3%a9.png)"), Paths{"b c/dé.png"});
    EXPECT_EQ(askedFor("![a](<b c.png>)"), Paths{"b c.png"});
    EXPECT_EQ(askedFor("![a](b%3Ac)"), Paths{"b:c"});
    EXPECT_EQ(askedFor("![a](/b/../c?d#e)"), Paths{"/b/../c?d#e"});
    EXPECT_EQ(askedFor("![a](b+c&amp;d\\_)"), Paths{"b+c&amp;d\\_"});
}

TEST(Image, pathIsAskedForAsItStandsWhenDecodingFails) {
    EXPECT_EQ(askedFor("![a](100%.png)"), Paths{"100%.png"});
    EXPECT_EQ(askedFor("![a](b%20c%2)"), Paths{"b%20c%2"});
    EXPECT_EQ(askedFor("![a](b%20c%GG)"), Paths{"b%20c%GG"});
    EXPECT_EQ(askedFor("![a](b%20c%FF)"), Paths{"b%20c%FF"});
}

TEST(Image, withoutItsDestinationIsTextAndPerhapsALink) {
    EXPECT_EQ(rendered("![a](b", findsAll), "<p>![a](b</p>\n");
    EXPECT_EQ(rendered("!\\[a](b)", findsAll), "<p>![a](b)</p>\n");
    EXPECT_EQ(rendered("\\![a](b)", findsAll), "<p>!<a href=\"b\">a</a></p>\n");
    EXPECT_EQ(rendered("! [a](b)", findsAll), "<p>! <a href=\"b\">a</a></p>\n");
    EXPECT_EQ(rendered("!![a](b)", findsAll), "<p>!<img src=\"cid:b\" alt=\"a\"></p>\n");
}

TEST(Image, mayStandInALink) {
    EXPECT_EQ(rendered("[![a](pic.png) b](c)", findsOne),
              "<p><a href=\"c\"><img src=\"cid:asset-0\" alt=\"a\"> b</a></p>\n");
}

TEST(Image, mayStandInAHeadingAndATable) {
    EXPECT_EQ(rendered("# ![a](pic.png)", findsOne),
              "<h1 id=\"apicpng\"><img src=\"cid:asset-0\" alt=\"a\"></h1>\n");
    EXPECT_EQ(rendered("| ![a](pic.png) |\n| - |", findsOne),
              "<table>\n<thead>\n<tr><th><img src=\"cid:asset-0\" alt=\"a\"></th></tr>\n</thead>\n<tbody>\n"
              "</tbody>\n</table>\n");
}

TEST(RawImage, hasItsSourceReplacedWhenItIsFound) {
    EXPECT_EQ(rendered("<img src=\"pic.png\" alt=\"a\" width=10>", findsOne),
              "<img src=\"cid:asset-0\" alt=\"a\" width=10>\n");
    EXPECT_EQ(rendered("a <IMG class=b SRC = 'pic.png'/>", findsOne),
              "<p>a <IMG class=b SRC = 'cid:asset-0'/></p>\n");
}

TEST(RawImage, sourceIsEscaped) {
    EXPECT_EQ(
        rendered("<img src='b'>", [](const std::string&) { return std::optional<std::string>("x'\"&<"); }),
        "<img src='x&#39;&quot;&amp;&lt;'>\n");
}

TEST(RawImage, thatIsMissingIsItsAlternativeText) {
    EXPECT_EQ(rendered("a <img src=\"b.png\" alt='c'>", findsOne),
              "<p>a <span class=\"missing-image\">c</span></p>\n");
    EXPECT_EQ(rendered("<p><img alt=\"a &amp; < c\" src=\"b.png\"></p>", findsOne),
              "<p><span class=\"missing-image\">a &amp; < c</span></p>\n");
}

TEST(RawImage, thatIsMissingAndHasNoTextDisappears) {
    EXPECT_EQ(rendered("<p>a<img src=\"b.png\">c<img alt='' src='b.png'>d</p>", findsOne), "<p>acd</p>\n");
    EXPECT_EQ(rendered("a <img src=\"b.png\" alt=b> c", findsOne), "<p>a  c</p>\n");
    EXPECT_EQ(rendered("<p>a<img src=\"b.png\" alt=\"c's\">d</p>", findsOne), "<p>ad</p>\n");
}

TEST(RawImage, ofAFileURLIsMissing) {
    EXPECT_EQ(rendered("<p><img src=\"file:///etc/hosts\" alt=\"a\">", findsAll),
              "<p><span class=\"missing-image\">a</span>\n");
}

TEST(RawImage, ofAScriptIsMissing) {
    EXPECT_EQ(rendered("<p>a<img src=\"javascript:b\"><img src='data:text/html,b' alt='c'>", findsAll),
              "<p>a<span class=\"missing-image\">c</span>\n");
}

TEST(RawImage, fromElsewhereIsLeftAsItIs) {
    for (const std::string tag : {"<img src=\"https://a.b/c@d.png?e=1\">", "<img src='HTTPS://A.B'>",
                                  "<img src=\"data:image/gif;base64,AA==\" alt=\"\">"})
        EXPECT_EQ(rendered(tag, findsOne), tag + "\n");
}

TEST(RawImage, fromElsewhereIsEscapedAgain) {
    EXPECT_EQ(rendered("<img src=\"https://a?b&amp;c&d\">"), "<img src=\"https://a?b&amp;amp;c&amp;d\">\n");
}

TEST(RawImage, withoutAQuotedSourceIsLeftAsItIs) {
    for (const std::string tag :
         {"<img>", "<img src=pic.png>", "<img src=\"pic.png'>", "<img srcset=\"pic.png\">",
          "<img src=\"it's.png\">", "<img alt=\"src\" xsrc=\"pic.png\">"})
        EXPECT_EQ(rendered(tag, findsOne), tag + "\n");
}

TEST(RawImage, firstSourceCounts) {
    EXPECT_EQ(rendered("<img src=\"pic.png\" src=\"b.png\">", findsOne),
              "<img src=\"cid:asset-0\" src=\"b.png\">\n");
    EXPECT_EQ(rendered("<img data-src=\"pic.png\" src=\"b.png\">", findsOne),
              "<img data-src=\"cid:asset-0\" src=\"b.png\">\n");
}

TEST(RawImage, endsAtTheFirstGreaterThanSign) {
    EXPECT_EQ(rendered("<img alt=\"a>b\" src=\"c.png\">", findsOne), "<img alt=\"a>b\" src=\"c.png\">\n");
}

TEST(RawImage, pathIsAskedForWithoutPercentEncoding) {
    EXPECT_EQ(askedFor("<img src=\"a%20b.png\"> <img src='a&amp;b'> <img src=\"./a:b\">"),
              (Paths{"a b.png", "a&amp;b", "./a:b"}));
    EXPECT_EQ(askedFor("<img src=\"a%20b%\">"), Paths{"a%20b%"});
}

TEST(RawImage, withAnAtSignInItsSourceIsATag) {
    EXPECT_EQ(askedFor("a <img src=\"logo@2x.png\">"), Paths{"logo@2x.png"});
}

TEST(RawImage, inCodeIsText) {
    EXPECT_EQ(askedFor("`<img src=\"a\">` \\<img src=\"b\">\n\n    <img src=\"c\">\n\n```\n![a](d)\n```"),
              Paths());
}

} // namespace
} // namespace quillmar
