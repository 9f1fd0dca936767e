#include "Markdown/HTMLBlock.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

bool isHTML(std::string_view line) { return isHTMLBlock(Line(line)); }
bool isComment(std::string_view line) { return beginsComment(Line(line)); }

TEST(HTMLBlockStart, isAnOpeningOrClosingTag) {
    for (const std::string_view line :
         {"<div>", "</div>", "<div", "</div", "<br/>", "</br/>", "<a b=c>d", "<A>"})
        EXPECT_TRUE(isHTML(line)) << line;
}

TEST(HTMLBlockStart, mayBeAnyName) {
    for (const std::string_view line : {"<x>", "<h1>", "<my-element>", "<a->", "<a--1 b>", "<Z9Z>"})
        EXPECT_TRUE(isHTML(line)) << line;
}

TEST(HTMLBlockStart, nameBeginsWithAnASCIILetter) {
    for (const std::string_view line :
         {"<1>", "<->", "<_a>", "<>", "</>", "<//a>", "< a>", "</ a>", "<\u00E9>", "<\u017Fcript>", "<\xFF>"})
        EXPECT_FALSE(isHTML(line)) << line;
}

TEST(HTMLBlockStart, nameEndsBeforeWhiteSpaceOfAnyKind) {
    for (const std::string_view space :
         {" ", "\t", "\v", "\f", "\u0085", "\u00A0", "\u2003", "\u2028", "\u3000"})
        EXPECT_TRUE(isHTML(std::string("<a").append(space).append("b"))) << space;
}

TEST(HTMLBlockStart, nameEndsBeforeNothingElse) {
    for (const std::string_view next :
         {"/", "/ >", "//>", "_", ":", ".", "=", "<", "\"", "\u00E9", "\u0301>", "\u200B>", "\xFF>", "\xC2"})
        EXPECT_FALSE(isHTML(std::string("<a").append(next))) << next;
}

TEST(HTMLBlockStart, mayBeAComment) {
    for (const std::string_view line : {"<!--", "<!-- a -->", "<!-->", "<!---"})
        EXPECT_TRUE(isHTML(line)) << line;
}

TEST(HTMLBlockStart, isNoOtherDeclaration) {
    for (const std::string_view line : {"<!-", "<!", "<!DOCTYPE html>", "<!-a-->", "<?xml?>", "<![CDATA[a]]>"})
        EXPECT_FALSE(isHTML(line)) << line;
}

TEST(HTMLBlockStart, standsAtTheStartOfItsLine) {
    for (const std::string_view line : {"", "   ", "<", "a<b>", "\\<b>", "&lt;b>", "\v<b>"})
        EXPECT_FALSE(isHTML(line)) << line;
}

TEST(HTMLBlockStart, mayStandBehindWhatTrimmingRemoves) {
    EXPECT_TRUE(isHTML("   <b>"));
    EXPECT_TRUE(isHTML("\u00A0\t<b>"));
    EXPECT_TRUE(isHTML("\u3000<!--"));
}

TEST(HTMLBlockStart, isNotIndentedAsCode) {
    EXPECT_FALSE(isHTML("    <b>"));
    EXPECT_FALSE(isHTML("    <!--"));
}

TEST(HTMLComment, beginsWithTwoHyphens) {
    EXPECT_TRUE(isComment("<!--"));
    EXPECT_TRUE(isComment("<!--a"));
    EXPECT_TRUE(isComment("  \u00A0<!-- a"));
    EXPECT_FALSE(isComment("<!- -"));
    EXPECT_FALSE(isComment("<b><!--"));
}

TEST(HTMLComment, isClosedAnywhereInALine) {
    EXPECT_TRUE(closesComment("-->"));
    EXPECT_TRUE(closesComment("a --> b"));
    EXPECT_TRUE(closesComment("a ----->"));
}

TEST(HTMLComment, mayBeClosedByTheHyphensThatOpenIt) {
    EXPECT_TRUE(closesComment("<!-->"));
    EXPECT_TRUE(closesComment("<!--->"));
}

TEST(HTMLComment, isClosedByNothingElse) {
    for (const std::string_view line : {"", "--", "->", "-- >", "-\u200B->", "--\\>", "--!>", "<!--"})
        EXPECT_FALSE(closesComment(line)) << line;
}

} // namespace
} // namespace quillmar::Markdown
