#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string link(std::string_view href, std::string_view text) {
    std::string html = "<a href=\"";
    html.append(href).append("\">").append(text).append("</a>");
    return html;
}

std::string link(std::string_view url) { return link(url, url); }

TEST(AngleAutolink, beginsWithAScheme) {
    for (const std::string url :
         {"https://a.b/c?d=e#f", "HTTP://A", "mailto:a@b.c", "tel:1", "ftp:", "http:*a*_b_"})
        expectParagraphs({{"<" + url + ">", link(url)}});
    expectParagraphs({{"a<https://b>c", "a" + link("https://b") + "c"}});
}

TEST(AngleAutolink, isEscapedAndNothingElse) {
    expectParagraphs({{"<http://a?b&c='d\"\\*`e>", link("http://a?b&amp;c=&#39;d&quot;\\*`e")}});
    expectParagraphs({{"<http://a<b>", link("http://a&lt;b")}});
}

TEST(AngleAutolink, ofAnUnknownSchemeLeadsNowhere) {
    expectParagraphs({{"<javascript:a()>", link("#", "javascript:a()")},
                      {"<a+b.c-1:d>", link("#", "a+b.c-1:d")},
                      {"<svg:rect>", link("#", "svg:rect")},
                      {"<data:text/html,b>", link("#", "data:text/html,b")}});
}

TEST(AngleAutolink, schemeHasTwoToThirtyTwoCharacters) {
    const std::string longest = repeated("a", 32) + ":";
    expectParagraphs({{"<a:b>", "&lt;a:b&gt;"},
                      {"<ab:c>", link("#", "ab:c")},
                      {"<" + longest + ">", link("#", longest)},
                      {"<a" + longest + ">", "&lt;a" + longest + "&gt;"}});
}

TEST(AngleAutolink, schemeBeginsWithALetterAndHasNoOtherCharacters) {
    expectParagraphs({{"<1a:b>", "&lt;1a:b&gt;"},
                      {"<a_b:c>", "&lt;a_b:c&gt;"},
                      {"<éa٣:b>", link("#", "éa٣:b")}, // of any script
                      {"<a½:b>", "&lt;a½:b&gt;"},
                      {"<:a>", "&lt;:a&gt;"},
                      {"<//a:b>", "&lt;//a:b&gt;"}});
}

TEST(AngleAutolink, holdsNoWhiteSpace) {
    expectParagraphs({{"<tel: 1>", "&lt;tel: 1&gt;"},
                      {"<tel:1\n2>", "&lt;tel:1\n2&gt;"},
                      {"<tel:1\u00A0>", "&lt;tel:1\u00A0&gt;"},
                      {"< tel:1>", "&lt; tel:1&gt;"},
                      {"<https://a b>", "&lt;" + link("https://a") + " b&gt;"}});
}

TEST(AngleAutolink, needsItsClosingBracket) {
    expectParagraphs({{"<tel:1", "&lt;tel:1"}, {"<<tel:1>>", "&lt;" + link("tel:1") + "&gt;"}});
}

TEST(EmailAutolink, hasAnAtSignAndAFullStop) {
    expectParagraphs({{"<a@b.c>", link("mailto:a@b.c", "a@b.c")},
                      {"<a.b@c>", link("mailto:a.b@c", "a.b@c")},
                      {"<@.>", link("mailto:@.", "@.")},
                      {"<a@b>", "&lt;a@b&gt;"},
                      {"<a.b>", "&lt;a.b&gt;"}});
}

TEST(EmailAutolink, isEscaped) {
    expectParagraphs({{"<a&\"<b@c.d>", link("mailto:a&amp;&quot;&lt;b@c.d", "a&amp;&quot;&lt;b@c.d")}});
}

TEST(EmailAutolink, doesNotBeginWithASlash) {
    expectParagraphs({{"x </a@b.c>", "x &lt;/a@b.c&gt;"}, {"<a/@b.c>", link("mailto:a/@b.c", "a/@b.c")}});
}

TEST(EmailAutolink, holdsNoWhiteSpace) {
    expectParagraphs({{"x <a @b.c>", "x &lt;a @b.c&gt;"}, {"x <a@b.c\u3000>", "x &lt;a@b.c\u3000&gt;"}});
}

TEST(EmailAutolink, comesAfterAScheme) {
    expectParagraphs({{"<xx:a@b.c>", link("#", "xx:a@b.c")}, {"<x:a@b.c>", link("mailto:x:a@b.c", "x:a@b.c")}});
}

TEST(BareURL, beginsWithASchemeOrWWW) {
    expectParagraphs({{"https://a.b/c", link("https://a.b/c")},
                      {"x http://a y", "x " + link("http://a") + " y"},
                      {"www.a.b", link("https://www.a.b", "www.a.b")},
                      {"HTTPS://A Http://b", link("HTTPS://A") + " " + link("Http://b")},
                      {"WwW.a", link("https://WwW.a", "WwW.a")}});
}

TEST(BareURL, isNothingElse) {
    expectParagraphs({{"ftp://a", "ftp://a"},
                      {"https:/a", "https:/a"},
                      {"http:a", "http:a"},
                      {"www a", "www a"},
                      {"ww.a w", "ww.a w"},
                      {"a@b.c h H w W", "a@b.c h H w W"}});
}

TEST(BareURL, doesNotFollowALetterADigitOrASlash) {
    expectParagraphs({{"xhttps://a", "xhttps://a"},
                      {"1www.a", "1www.a"},
                      {"/www.a", "/www.a"},
                      {"éwww.a", "éwww.a"},
                      {"٣www.a", "٣www.a"},
                      {"\\/www.a", "/www.a"},
                      {"xhttps://www.a", "xhttps://www.a"},
                      {"wwww.a", "wwww.a"}});
}

TEST(BareURL, mayFollowAnythingElse) {
    expectParagraphs({{"_www.a", "_" + link("https://www.a", "www.a")},
                      {"(www.a", "(" + link("https://www.a", "www.a")},
                      {"½www.a", "½" + link("https://www.a", "www.a")},
                      {"e\u0301www.a", "e\u0301" + link("https://www.a", "www.a")},
                      {"x\nwww.a", "x\n" + link("https://www.a", "www.a")},
                      {"`a`www.a", "<code>a</code>" + link("https://www.a", "www.a")}});
}

TEST(BareURL, goesOnToWhiteSpaceOrALessThanSign) {
    expectParagraphs({{"https://a\nb", link("https://a") + "\nb"},
                      {"https://a\u00A0b", link("https://a") + "\u00A0b"},
                      {"https://a\u2028b", link("https://a") + "\u2028b"},
                      {"https://a<b>c</b>", link("https://a") + "<b>c</b>"},
                      {"https://a>b|c[d](e)`f`\\g", link("https://a&gt;b|c[d](e)`f`\\g")},
                      {"https://é/日本", link("https://é/日本")}});
}

TEST(BareURL, excludesTrailingPunctuation) {
    for (const std::string mark : {".", ",", ":", ";", "!", "?", "*", "_", "~"})
        expectParagraphs({{"https://a" + mark, link("https://a") + mark}});
    expectParagraphs({{"'https://a'", "&#39;" + link("https://a") + "&#39;"},
                      {"\"https://a\"", "&quot;" + link("https://a") + "&quot;"},
                      {"https://a.b?c!... d", link("https://a.b?c") + "!... d"}});
}

TEST(BareURL, includesOtherTrailingCharacters) {
    expectParagraphs({{"(https://a)", "(" + link("https://a)")},
                      {"https://a/", link("https://a/")},
                      {"https://a\\\nb", link("https://a\\") + "\nb"},
                      {"https://a.)", link("https://a.)")},
                      {"[https://a]", "[" + link("https://a]")},
                      {"https://a…", link("https://a…")}});
}

TEST(BareURL, mayBeItsPrefixOnly) {
    expectParagraphs({{"https://", link("https://")},
                      {"http://...", link("http://") + "..."},
                      {"www.", link("https://www", "www") + "."},
                      {"www.:.", link("https://www", "www") + ".:."},
                      {"x www. y", "x " + link("https://www", "www") + ". y"}});
}

TEST(BareURL, isEscaped) {
    expectParagraphs({{"https://a?b&c='d'e\"f", link("https://a?b&amp;c=&#39;d&#39;e&quot;f")},
                      {"www.a&b", link("https://www.a&amp;b", "www.a&amp;b")}});
}

TEST(BareURL, mayStandInEmphasis) {
    expectParagraphs({{"*https://a*", "<em>" + link("https://a") + "</em>"},
                      {"**https://a_b_c**", "<strong>" + link("https://a_b_c") + "</strong>"},
                      {"~~www.a.~~", "<del>" + link("https://www.a", "www.a") + ".</del>"},
                      {"https://a*b*c", link("https://a*b*c")}});
}

TEST(BareURL, isNotRecognizedInCodeAndTags) {
    expectParagraphs(
        {{"`https://a`", "<code>https://a</code>"}, {"x <a b=\"https://c\">", "x <a b=\"https://c\">"}});
}

TEST(BareURL, hardBreakBehindItIsABreak) {
    expectParagraphs({{"https://a  \nb", link("https://a") + "<br>\nb"}});
}

} // namespace
} // namespace quillmar
