#include "Markdown/SafeURL.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

TEST(SafeURL, keepsHarmlessSchemes) {
    for (const std::string_view url :
         {"http://example.org", "https://example.org/a:b?c#d", "mailto:pear@example.org", "ftp://example.org",
          "tel:+49-30-1", "x-apple.systempreferences:com.apple.preference"})
        EXPECT_EQ(safeURL(url), url);
}

TEST(SafeURL, comparesSchemesWithoutCase) {
    EXPECT_EQ(safeURL("HttpS://Example.org"), "HttpS://Example.org");
    EXPECT_EQ(safeURL("MAILTO:a"), "MAILTO:a");
}

TEST(SafeURL, replacesEveryOtherScheme) {
    for (const std::string_view url :
         {"javascript:alert(1)", "JavaScript:alert(1)", "data:text/html,x", "vbscript:x", "file:///etc/passwd",
          "blob:x", "about:blank", "httpss:x", "htt:x", "http2://x", "x-apple.systempreferences2:x"})
        EXPECT_EQ(safeURL(url), "#") << url;
}

TEST(SafeURL, isNotDeceivedByWhatBrowsersSkip) {
    for (const std::string_view url :
         {"\x01javascript:x", " \t\u00A0javascript:x", "java\nscript:x", "java\tscript:x", "java script:x",
          "http :x", ":x", "\uFEFFhttp:x", "http\u0301:x", "\u017Fhttp:x", "ma\u0130lto:x", "\xFFhttp:x",
          "\nhttp:x"})
        EXPECT_EQ(safeURL(url), "#") << url;
    EXPECT_EQ(safeURL(std::string_view("http\0:x", 7)), "#");
}

TEST(SafeURL, seesAColonBeforeACombiningMark) { EXPECT_EQ(safeURL("javascript:\u0301x"), "#"); }

TEST(SafeURL, keepsDestinationsWithoutAScheme) {
    for (const std::string_view url : {"", "notes.md", "../a/b", "#part", "?q", "//example.org", "/a"})
        EXPECT_EQ(safeURL(url), url);
}

TEST(SafeURL, keepsColonsOfPathsQueriesAndFragments) {
    for (const std::string_view url : {"a/b:c", "./javascript:x", "?a:b", "#a:b", "a?b:c", "a#b:c:d"})
        EXPECT_EQ(safeURL(url), url);
}

TEST(SafeURL, trimsBeforeItLooks) {
    EXPECT_EQ(safeURL(" \t\u00A0https://example.org\u3000 "), "https://example.org");
    EXPECT_EQ(safeURL("   "), "");
}

TEST(SafeURL, encodesSpaces) {
    EXPECT_EQ(safeURL(" my notes  v2.md "), "my%20notes%20%20v2.md");
    EXPECT_EQ(safeURL("http://a b"), "http://a%20b");
}

TEST(SafeURL, encodesNothingElse) { EXPECT_EQ(safeURL("a\tb\u00A0c%\"<\xFF"), "a\tb\u00A0c%\"<\xFF"); }

TEST(SafeURL, isAppendedEscaped) {
    std::string html = "<a href=\"";
    appendSafeURL(html, " http://a/?b&c=\"<d e>\" ");
    EXPECT_EQ(html, "<a href=\"http://a/?b&amp;c=&quot;&lt;d%20e&gt;&quot;");
}

TEST(SafeURL, isAppendedEscapedWithoutSpacesToo) {
    std::string html = "<a href=\"";
    appendSafeURL(html, "a'b");
    EXPECT_EQ(html, "<a href=\"a&#39;b");
}

TEST(SafeURL, appendsTheHarmlessOneForAnUnsafeOne) {
    std::string html = "<a href=\"";
    appendSafeURL(html, "javascript:\"x y\"");
    EXPECT_EQ(html, "<a href=\"#");
}

} // namespace
} // namespace quillmar::Markdown
