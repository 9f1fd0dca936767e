#include "Tests/Helpers/Markdown.h"

#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace quillmar {
namespace {

using namespace std::string_literals;

std::string withLineBreaks(std::string_view text, std::string_view lineBreak) {
    std::string result;
    for (const char c : text) {
        if (c == '\n')
            result += lineBreak;
        else if (c != '\r')
            result += c;
    }
    return result;
}

/// Texts put together at random from what Markdown gives a meaning to, and from bytes without any.
std::vector<std::string> randomTexts() {
    static const std::vector<std::string> pieces{
        "*",   "**",   "_",        "~~",     "`",      "```",     "~~~",  "[",        "]",
        "(",   ")",    "](",       "![",     "<",      ">",       "<b>",  "</b>",     "<!--",
        "-->", "\n",   "\n\n",     "\n\n",   "    ",   "  ",      " ",    "\t",       "- ",
        "1. ", "2) ",  "> ",       "# ",     "---",    "===",     "|",    "|-|",      "\\",
        "a",   "b c",  "[a]",      "[a]: b", "www.",   "http://", "@",    ".",        "\"",
        "'",   "&",    "é",        "\u0301", "\u00A0", "😀",       "[x] ", "<script>", "<img src=\"a\">",
        "\0"s, "\xFF", "\xE2\x82", "\r",     "\r\n"};
    std::mt19937 random(20240229); // the same texts every time
    std::uniform_int_distribution<std::size_t> anyPiece(0, pieces.size() - 1);
    std::uniform_int_distribution<int> anyByte(0, 255);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < 300; ++i) {
        std::string text;
        for (std::size_t count = 0; count < 1 + i / 2; ++count) text += pieces[anyPiece(random)];
        if (i % 10 == 0)
            for (int count = 0; count < 100; ++count) text += static_cast<char>(anyByte(random));
        texts.push_back(text);
    }
    return texts;
}

/// Texts of every kind, repaired.
std::vector<std::string> oddTexts() {
    std::vector<std::string> texts{"",
                                   "\n",
                                   " ",
                                   "\t",
                                   "\r",
                                   "---",
                                   "---\n---",
                                   "---\na: b\n...\n# c",
                                   "```",
                                   "> ",
                                   "-",
                                   "1.",
                                   "[",
                                   "\\",
                                   "<",
                                   "!",
                                   "\xEF\xBB\xBF# a",
                                   "a\xFF",
                                   "\xE2\x82",
                                   "# \u202Ea\n\u2028\u2029\v\f",
                                   "|\n-|",
                                   "a\n=",
                                   "<script",
                                   "<!--",
                                   "&",
                                   "a  \nb\\\nc",
                                   "- [ ] ",
                                   "![](",
                                   "*\u0301*",
                                   "\u0301*a*\u0301"};
    for (const std::string& text : randomTexts()) texts.push_back(text);
    for (std::string& text : texts) text = decodedText(text);
    return texts;
}

TEST(Document, mayBeEmpty) {
    EXPECT_EQ(rendered(""), "");
    EXPECT_EQ(rendered("\n"), "");
    EXPECT_EQ(rendered(" \n\t\n\r\n    \n"), "");
}

TEST(Document, hasOneElementAfterTheOther) {
    EXPECT_EQ(
        rendered("# a\nb\n***\n- c\n\n> d\n\n    e\n\n```\nf\n```\n<i>\n\n|g|\n|-|\nh"),
        "<h1 id=\"a\">a</h1>\n<p>b</p>\n<hr>\n<ul>\n<li>c</li>\n</ul>\n<blockquote>\n<p>d</p>\n</blockquote>\n"
        "<pre><code>e\n</code></pre>\n<pre><code>f\n</code></pre>\n<i>\n"
        "<table>\n<thead>\n<tr><th>g</th></tr>\n</thead>\n<tbody>\n</tbody>\n</table>\n<p>h</p>\n");
}

TEST(Document, lineBreakMayBeCarriageReturnAndLineFeed) {
    EXPECT_EQ(rendered("a\r\nb\r\n\r\n# c\r\n"), "<p>a\nb</p>\n<h1 id=\"c\">c</h1>\n");
    EXPECT_EQ(rendered("a  \r\nb\\\r\nc"), "<p>a<br>\nb<br>\nc</p>\n");
}

TEST(Document, lineBreakMayBeACarriageReturn) {
    EXPECT_EQ(rendered("a\rb\r\r# c\r"), "<p>a\nb</p>\n<h1 id=\"c\">c</h1>\n");
    EXPECT_EQ(rendered("a\r\r\nb"), "<p>a</p>\n<p>b</p>\n");
    EXPECT_EQ(rendered("a\n\rb"), "<p>a</p>\n<p>b</p>\n");
}

TEST(Document, hasTheSameHTMLWhateverTheLineBreaks) {
    for (const std::string& text : oddTexts()) {
        const std::string html = rendered(withLineBreaks(text, "\n"));
        EXPECT_TRUE(sameText(rendered(withLineBreaks(text, "\r\n")), html)) << text;
        EXPECT_TRUE(sameText(rendered(withLineBreaks(text, "\r")), html)) << text;
    }
}

TEST(Document, hasTheSameHTMLEveryTime) {
    const MarkdownRenderer renderer{};
    for (const std::string& text : oddTexts())
        EXPECT_TRUE(sameText(renderer.render(text), renderer.render(text)));
}

TEST(Document, ofWellFormedTextIsWellFormed) {
    for (const std::string& text : oddTexts()) {
        const std::string html = rendered(text);
        EXPECT_EQ(UTF8::validPrefix(html), html.size()) << text;
    }
}

TEST(Document, ofIllFormedTextIsRendered) {
    for (const std::string& text : randomTexts()) EXPECT_TRUE(sameText(rendered(text), rendered(text)));
}

TEST(Document, everyPrefixOfATextIsRendered) {
    const std::string text =
        "---\na: b\n---\n# [é](x \"t\")\n> - [ ] *a `b` <c d=\"e\">* ![f][g]\n\n1. ```c\n   d\n   ```\n\n"
        "|h|i|\n|:-|-:|\n|`j|k`|\n[g]: <l> 'm'\n<!-- n -->\n~~o~~ www.p\u00A0\\";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string prefix = decodedText(text.substr(0, length));
        const std::string html = rendered(prefix);
        EXPECT_EQ(UTF8::validPrefix(html), html.size()) << prefix;
    }
}

TEST(Document, byteOrderMarkInTheTextIsText) { EXPECT_EQ(rendered("\uFEFF# a"), "<p>\uFEFF# a</p>\n"); }

TEST(Document, combiningMarksDoNotHideMarkup) {
    EXPECT_EQ(rendered("# \u0301a"), "<h1 id=\"\u0301a\">\u0301a</h1>\n");
    EXPECT_EQ(rendered("- \u0301a"), "<ul>\n<li>\u0301a</li>\n</ul>\n");
    EXPECT_EQ(rendered("> \u0301a"), "<blockquote>\n<p>\u0301a</p>\n</blockquote>\n");
    EXPECT_EQ(rendered(">\u0301a"), "<blockquote>\n<p>\u0301a</p>\n</blockquote>\n");
    EXPECT_EQ(rendered("    \u0301a"), "<pre><code>\u0301a\n</code></pre>\n");
    EXPECT_EQ(rendered("~~~ \u0301\n~~~"), "<pre><code class=\"language-\u0301\"></code></pre>\n");
    EXPECT_EQ(rendered("`a`\u0301 **b**\u0301"), "<p><code>a</code>\u0301 <strong>b</strong>\u0301</p>\n");
    EXPECT_EQ(rendered("[\u0301a\u0301](\u0301b\u0301)\u0301"),
              "<p><a href=\"\u0301b\u0301\">\u0301a\u0301</a>\u0301</p>\n");
    EXPECT_EQ(rendered("a  \n\u0301b"), "<p>a<br>\n\u0301b</p>\n");
    EXPECT_EQ(rendered("|\u0301a|\u0301\n|-|-|"), "<table>\n<thead>\n<tr><th>\u0301a</th><th>\u0301</th></tr>\n"
                                                  "</thead>\n<tbody>\n</tbody>\n</table>\n");
    EXPECT_EQ(rendered("---\na:\u0301b\n---"), "<table class=\"front-matter\">\n"
                                               "<tr><th>a</th><td>\u0301b</td></tr>\n</table>\n");
}

TEST(Document, combiningMarksBehindAMarkerAreNoSpace) {
    EXPECT_EQ(rendered("#\u0301a"), "<p>#\u0301a</p>\n");
    EXPECT_EQ(rendered("-\u0301a"), "<p>-\u0301a</p>\n");
    EXPECT_EQ(rendered("---\u0301"), "<p>---\u0301</p>\n");
    EXPECT_EQ(rendered("a\n---\u0301"), "<p>a\n---\u0301</p>\n");
    EXPECT_EQ(rendered("```\na\n```\u0301"), "<pre><code>a\n```\u0301\n</code></pre>\n");
}

TEST(Document, keepsNullCharacters) {
    EXPECT_EQ(rendered("\0# a\0b [c\0](d\0e) `\0`"s),
              "<p>\0# a\0b <a href=\"d\0e\">c\0</a> <code>\0</code></p>\n"s);
    EXPECT_EQ(rendered("# a\0b"s), "<h1 id=\"ab\">a\0b</h1>\n"s);
}

TEST(Document, leadingTabsAreSpaces) {
    EXPECT_EQ(rendered("\t\ta"), "<pre><code>    a\n</code></pre>\n");
    EXPECT_EQ(rendered("  \t \ta"), "<pre><code>    a\n</code></pre>\n");
    EXPECT_EQ(rendered("   \ta"), "<pre><code>a\n</code></pre>\n");
    EXPECT_EQ(rendered("- a\n\t- b"), "<ul>\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ul>\n");
    EXPECT_EQ(rendered("<p>\n\ta\tb"), "<p>\n    a\tb\n");
}

TEST(Document, otherTabsStay) {
    EXPECT_EQ(rendered("a\tb"), "<p>a\tb</p>\n");
    EXPECT_EQ(rendered("a\n b\tc"), "<p>a\nb\tc</p>\n");
    EXPECT_EQ(rendered(">\t\ta"), "<blockquote>\n<p>a</p>\n</blockquote>\n");
    EXPECT_EQ(rendered("<i>\n\u00A0\ta"), "<i>\n\u00A0\ta\n");
}

} // namespace
} // namespace quillmar
