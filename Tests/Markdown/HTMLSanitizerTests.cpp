#include "Markdown/HTMLSanitizer.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace quillmar::Markdown {
namespace {

/// Finds "ok.png" alone, under a URL that needs escaping.
std::optional<std::string> resolveImage(const std::string& path) {
    return path == "ok.png" ? std::optional<std::string>("cid:a&'b'") : std::nullopt;
}

std::string sanitized(std::string_view html) { return sanitizeHTML(html, resolveImage); }

constexpr std::string_view resolvedSource = "cid:a&amp;&#39;b&#39;";

TEST(HTMLSanitizer, harmlessMarkupStays) {
    for (const std::string html :
         {"", "text", "<p class=\"a\">1 < 2 &amp; 3 > 2</p>", "<!-- <p> -->", "<kbd>on = off</kbd>", "</img>",
          "<a href=\"https://example.org/?a=b\">x</a>", "<svg><use href='#x'/></svg>", "\r\n"})
        EXPECT_EQ(sanitized(html), html);
}

TEST(HTMLSanitizer, anElementWithoutClosingTagTakesTheRest) {
    EXPECT_EQ(sanitized("<p>a</p><style>p { color: red }<p>b</p>"), "<p>a</p>");
}

TEST(HTMLSanitizer, theLineBreakAtTheEndStaysBehindAnElementWithoutClosingTag) {
    EXPECT_EQ(sanitized("a<script>b\n"), "a\n");
    EXPECT_EQ(sanitized("a<script>b\r\n"), "a\r\n");
    EXPECT_EQ(sanitized("a<script>b\n\n"), "a\n");
}

TEST(HTMLSanitizer, anElementGoesWithItsContent) {
    EXPECT_EQ(sanitized("a<script src=\"x\">if (1 < 2) alert(\"</p>\")</script>b"), "ab");
    EXPECT_EQ(sanitized("a<form action=x>Name: <input name=n></form>b"), "ab");
    EXPECT_EQ(sanitized("a<SELECT>\n<option>\n</select\t>b"), "ab");
}

TEST(HTMLSanitizer, anElementEndsAtItsOwnClosingTag) {
    EXPECT_EQ(sanitized("<frameset><frame></frame></frameset>b"), "b");
    EXPECT_EQ(sanitized("<object><embed></object>b</embed>c"), "bc");
}

TEST(HTMLSanitizer, frameTagsInCapitalsAreRemoved) {
    EXPECT_EQ(sanitized("a</IFRAME>b"), "ab");
    EXPECT_EQ(sanitized("a<IFRAME SRC=\"x\">b"), "a"); // as an element, and so with the rest
}

TEST(HTMLSanitizer, strayAndVoidTagsAreRemoved) {
    EXPECT_EQ(sanitized("a</script>b</object >c"), "abc");
    EXPECT_EQ(sanitized("<link rel=stylesheet href=x><meta http-equiv=refresh\n content=0><base href='//x'/>a"),
              "a");
    EXPECT_EQ(sanitized("<li><input type=checkbox> a</li>"), "<li> a</li>");
}

TEST(HTMLSanitizer, tagsWhoseNamesOnlyBeginAlikeStay) {
    for (const std::string html :
         {"<metadata>", "<linked>", "<scripts>", "<base64>", "<forms_>", "<embed\u00E9>"})
        EXPECT_EQ(sanitized(html), html);
}

TEST(HTMLSanitizer, anEventAttributeGoesWithTheSpaceBeforeIt) {
    EXPECT_EQ(sanitized("<a class=\"b\" onclick=\"run('x')\" href='c'>d</a>"), "<a class=\"b\" href='c'>d</a>");
    EXPECT_EQ(sanitized("<p\n\tonclick = 'run(\">\")'>a</p>"), "<p>a</p>");
    EXPECT_EQ(sanitized("<p ONMOUSEOVER=run() id=a>b</p>"), "<p id=a>b</p>");
}

TEST(HTMLSanitizer, aScriptSchemeIsReplaced) {
    EXPECT_EQ(sanitized("<a href=\"javascript:run()\">a</a>"), "<a href=\"#blocked:run()\">a</a>");
    EXPECT_EQ(sanitized("<a href = '  VBScript:run()'>a</a>"), "<a href='#blocked:run()'>a</a>");
    EXPECT_EQ(sanitized("<a xlink:href=\t javascript:run()>a</a>"), "<a xlink:href=#blocked:run()>a</a>");
    EXPECT_EQ(sanitized("<p formaction=javascript:x src=data:text:x>"),
              "<p formaction=#blocked:x src=#blocked:x>");
}

TEST(HTMLSanitizer, otherSchemesStay) {
    for (const std::string html :
         {"<a href=\"data:text/plain,x\">", "<a href=\"mailto:a@b\">", "<a href=javascript>",
          "<a title=\"javascript:x\">", "<a href=\"#javascript:\">"})
        EXPECT_EQ(sanitized(html), html);
}

TEST(HTMLSanitizer, anImageThatIsFoundGetsItsURL) {
    EXPECT_EQ(sanitized("<img alt='a' src='ok.png' width=\"1\">"),
              std::string("<img alt='a' src='").append(resolvedSource).append("' width=\"1\">"));
    EXPECT_EQ(sanitized("<IMG SRC = \"ok.png\"/>"),
              std::string("<IMG SRC = \"").append(resolvedSource).append("\"/>"));
}

TEST(HTMLSanitizer, anImageThatIsNotFoundBecomesItsText) {
    EXPECT_EQ(sanitized("a<img src=\"no.png\" alt=\"A &amp; <i\">b"),
              "a<span class=\"missing-image\">A &amp; <i</span>b");
}

TEST(HTMLSanitizer, anImageThatIsNotFoundGoesWithoutText) {
    EXPECT_EQ(sanitized("a<img src=\"no.png\">b"), "ab");
    EXPECT_EQ(sanitized("a<img src=\"no.png\" alt=\"\">b"), "ab");
    EXPECT_EQ(sanitized("a<img src=\"no.png\" alt=unquoted>b"), "ab");
}

TEST(HTMLSanitizer, anImageOfAnotherSchemeIsNotFound) {
    EXPECT_EQ(sanitized("<img src=\"file:///etc/passwd\" alt=\"x\">"),
              "<span class=\"missing-image\">x</span>");
}

TEST(HTMLSanitizer, remoteImagesStay) {
    for (const std::string html :
         {"<img src=\"HTTPS://Example.org/a.png\">", "<img src='data:image/png;base64,AAAA'>"})
        EXPECT_EQ(sanitized(html), html);
    EXPECT_EQ(sanitized("<img src='http://h/?a=1&b=2'>"), "<img src='http://h/?a=1&amp;b=2'>");
}

TEST(HTMLSanitizer, anImageWithoutQuotedSourceStays) {
    for (const std::string html :
         {"<img>", "<img src=no.png>", "<img srcset=\"no.png 2x\">", "<img src='no.png\">"})
        EXPECT_EQ(sanitized(html), html);
}

TEST(HTMLSanitizer, onlyTheFirstSourceOfAnImageCounts) {
    EXPECT_EQ(sanitized("<img src='http://h/' src='no.png'>"), "<img src='http://h/' src='no.png'>");
    EXPECT_EQ(sanitized("<img data-src='no.png' src='http://h/'>"), "");
}

TEST(HTMLSanitizer, everyImageIsAskedForOnceByItsPath) {
    std::vector<std::string> asked;
    sanitizeHTML("<img src='a%20b.png'><img src=\"c.png\"><img src='http://h/d.png'>",
                 [&](const std::string& path) {
                     asked.push_back(path);
                     return std::nullopt;
                 });
    EXPECT_EQ(asked, (std::vector<std::string>{"a b.png", "c.png"}));
}

TEST(HTMLSanitizer, withoutAResolverNoPathIsFound) {
    EXPECT_EQ(sanitizeHTML("<img src='ok.png' alt='a'>", nullptr), "<span class=\"missing-image\">a</span>");
}

TEST(HTMLSanitizer, textOfTheDocumentIsNoTemplate) {
    const auto dollars = [](const std::string&) { return std::optional<std::string>("$1\\2"); };
    EXPECT_EQ(sanitizeHTML("<a href=\"javascript:$2\\1\"><img src='x'>", dollars),
              "<a href=\"#blocked:$2\\1\"><img src='$1\\2'>");
}

TEST(HTMLSanitizer, lettersThatFoldToASCIIAreThoseLetters) {
    EXPECT_EQ(sanitized("a<\u017Fcript>b</SCRIPT>c"), "ac");
    EXPECT_EQ(sanitized("a<\uFB06yle>b</style>c"), "ac");
    EXPECT_EQ(sanitized("a<style>b</\uFB05yle>c"), "ac");
    EXPECT_EQ(sanitized("a<lin\u212A>b"), "ab");
    EXPECT_EQ(sanitized("<p on\u017F\u212A=x>"), "<p>");
    EXPECT_EQ(sanitized("<a href=java\u017Fcript:x>"), "<a href=#blocked:x>");
    EXPECT_EQ(sanitized("<img \u017Frc='no.png'>"), "");
}

TEST(HTMLSanitizer, whiteSpaceIsWhatUnicodeCallsSo) {
    EXPECT_EQ(sanitized("<p\u00A0onclick\u2028=\u3000x>a"), "<p>a");
    EXPECT_EQ(sanitized("<a href\u0085=\u00A0'\u2003javascript:x'>"), "<a href='#blocked:x'>");
    EXPECT_EQ(sanitized("<p\u200Bonclick=x>"), "<p\u200Bonclick=x>"); // a format character
}

TEST(HTMLSanitizer, aNameFollowedByAnExtendingCharacterIsAnotherName) {
    EXPECT_EQ(sanitized("<script\u0301>a"), "<script\u0301>a");
    EXPECT_EQ(sanitized("<img\u200D src='no.png'>"), "<img\u200D src='no.png'>");
}

TEST(HTMLSanitizer, aQuoteBesideACombiningMarkIsAQuote) {
    EXPECT_EQ(sanitized("<p onclick=\"\u0301a b\"\u0301>"), "<p\u0301>");
    EXPECT_EQ(sanitized("<img src='no.png'\u0301 alt='a'>"), "<span class=\"missing-image\">a</span>");
}

TEST(HTMLSanitizer, aTagThatARemovedElementSplitIsSeenByLaterPasses) {
    EXPECT_EQ(sanitized("<scr<script></script>ipt>alert(1)</script>"), "alert(1)");
    EXPECT_EQ(sanitized("<a o<script></script>nclick=x h<script></script>ref=javascript:x>"),
              "<a href=#blocked:x>");
}

TEST(HTMLSanitizer, aTagThatALaterRemovalMakesStays) {
    EXPECT_EQ(sanitized("<scr<input>ipt>alert(1)"), "<script>alert(1)");
    EXPECT_EQ(sanitized("<scr onx=''ipt>alert(1)"), "<script>alert(1)");
}

TEST(HTMLSanitizer, whatNoPassLooksForStays) {
    for (const std::string html :
         {"<svg/onload=run()>", "<p \"onclick=run()>", "<a href=\"java&#115;cript:x\">",
          "<a href=\"java\nscript:x\">", "<a href=\"\x01javascript:x\">", "<math><mi>x</mi></math>",
          "<video src=\"no.mp4\">"})
        EXPECT_EQ(sanitized(html), html);
}

TEST(HTMLSanitizer, tagsWithoutEndStay) {
    for (const std::string html : {"<input type=checkbox", "<img src='no.png'", "</script", "<link\n"})
        EXPECT_EQ(sanitized(html), html);
}

TEST(HTMLSanitizer, aTagEndsAtTheFirstGreaterThanEvenInQuotes) {
    EXPECT_EQ(sanitized("<input value=\">\">a"), "\">a");
    EXPECT_EQ(sanitized("<img src=\"no.png\" alt=\">\">a"), "\">a");
}

TEST(HTMLSanitizer, illFormedBytesStay) {
    EXPECT_EQ(sanitized("\xFF<p \xC3>\xED\xA0\x80<script>\x80</script>\xE2\x80"),
              "\xFF<p \xC3>\xED\xA0\x80\xE2\x80");
    EXPECT_EQ(sanitized("<p\xC2 onclick=\xA0x>"), "<p\xC2>");
}

TEST(HTMLSanitizer, NULStays) {
    const std::string html("a\0<p \0onclick=x>", 16);
    EXPECT_EQ(sanitized(html), html);
    EXPECT_EQ(sanitized(std::string("<script\0>a", 10)), "");
}

} // namespace
} // namespace quillmar::Markdown
