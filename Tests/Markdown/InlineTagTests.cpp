#include "Markdown/AngleBrackets.h"

#include "Tests/Helpers/RegularExpression.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillmar::Markdown {
namespace {

TEST(InlineTag, opensOrCloses) {
    for (const std::string_view tag : {"<b>", "</b>", "<br/>", "<br />", "</b >", "<b  >", "</b/>"})
        EXPECT_TRUE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, nameBeginsWithAnASCIILetter) {
    for (const std::string_view tag :
         {"<>", "</>", "< b>", "</ b>", "<1b>", "<-b>", "<_b>", "<\u00E9>", "<\xFF>", "<//b>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, nameHasASCIILettersDigitsAndHyphens) {
    for (const std::string_view tag : {"<B>", "<h1>", "<my-element->"}) EXPECT_TRUE(isInlineTag(tag)) << tag;
    for (const std::string_view tag : {"<b_c>", "<b:c>", "<b.c>", "<b\u00E9>", "<b\u0301>", "<b,>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, mayHaveAttributesWithoutValue) {
    for (const std::string_view tag : {"<b c>", "<b c d e>", "<b c/>", "<b c />", "</b c>"})
        EXPECT_TRUE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, mayHaveAttributesWithAValue) {
    for (const std::string_view tag : {"<b c=d>", "<b c=\"d\" e='f'>", "<b c=\"\">", "<b c=\"d 'e' <f\">",
                                       "<b c='\"'>", "<b c = d>", "<b c\n=\n'd\ne'>", "<b c=d e f='g'/>"})
        EXPECT_TRUE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, attributeNameBeginsWithAnASCIILetterAColonOrAnUnderscore) {
    for (const std::string_view tag : {"<b :c>", "<b _>", "<b Z=1>"}) EXPECT_TRUE(isInlineTag(tag)) << tag;
    for (const std::string_view tag :
         {"<b 1>", "<b -c>", "<b .c>", "<b \u00E9>", "<b \"c\">", "<b =c>", "<b @c>", "<b \xFF>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, attributeNameGoesOnWithWordCharactersAndThreeMarks) {
    for (const std::string_view tag :
         {"<b c.d-e:f_1>", "<b c\u00E9=1>", "<b c\u0301>", "<b c\u0663>", "<b c\u203F>", "<b c\u200D>"})
        EXPECT_TRUE(isInlineTag(tag)) << tag;
    for (const std::string_view tag :
         {"<b c\u00BD>", "<b c\u2014>", "<b c@d>", "<b c\u200B>", "<b c\xFF>", "<b c\\>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, plainValueHoldsNoQuotesWhiteSpaceOrMarkup) {
    for (const std::string_view tag :
         {"<b c=/d/?e&f#g>", "<b c=/>", "<b c=d/>", "<b c=\u00E9\u200B\xFF>", "<b c=->"})
        EXPECT_TRUE(isInlineTag(tag)) << tag;
    for (const std::string_view tag : {"<b c=>", "<b c= >", "<b c==d>", "<b c=d=e>", "<b c=d\"e>", "<b c=d'>",
                                       "<b c=d`e>", "<b c=d<e>", "<b c=/ >d>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, quotedValueEndsWithItsQuote) {
    for (const std::string_view tag :
         {"<b c=\"d>", "<b c='d\">", "<b c=\"d\"\">", "<b c=\"d\"e>", "<b c='d'e='f'>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, attributesStandBehindWhiteSpaceOfAnyKind) {
    for (const std::string_view space :
         {"\t", "\n", "\v", "\f", "\u0085", "\u00A0", "\u2028", "\u3000", " \n "}) {
        const std::string tag = std::string("<b").append(space).append("c=d").append(space).append("e>");
        EXPECT_TRUE(isInlineTag(tag)) << testing::PrintToString(tag);
    }
    EXPECT_FALSE(isInlineTag("<b\u200Bc>"));
    EXPECT_FALSE(isInlineTag("<b\"c\">"));
}

TEST(InlineTag, endsWithItsOnlySlash) {
    for (const std::string_view tag :
         {"<b//>", "<b/ >", "<b / >", "<b /c>", "<b c / d>", "<b c='d'/ >", "///b>"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, isTheWholeText) {
    for (const std::string_view tag :
         {"", "<", "b", "b>", "<b", "</b", "<b c", "<b c=", "<b c=\"", " <b>", "<b>c"})
        EXPECT_FALSE(isInlineTag(tag)) << tag;
}

TEST(InlineTag, isWhatThePatternMatches) {
    const RegularExpression pattern("^</?[A-Za-z][A-Za-z0-9-]*(?:\\s+[A-Za-z_:][\\w.:-]*"
                                    "(?:\\s*=\\s*(?:\"[^\"]*\"|'[^']*'|[^\\s\"'=<>`]+))?)*\\s*/?>$");
    constexpr std::array<std::string_view, 20> pieces{"a",      "b",      "a1",     "-",  " ",  " ",  " ",
                                                      "\n",     "=",      "=",      "\"", "\"", "'",  "'",
                                                      "\u00E9", "\u00A0", "\u0301", "/",  "`",  "_:."};
    std::mt19937 random(1); // the same tags every time
    int tags = 0;
    for (int round = 0; round < 30'000; ++round) {
        std::string tag = random() % 4 == 0 ? "</" : "<";
        if (random() % 4 != 0) tag += "a b";
        for (std::size_t length = random() % 8; length > 0; --length)
            tag += pieces.at(random() % pieces.size());
        tag += '>';
        const bool expected = pattern.matchesIn(tag);
        ASSERT_EQ(isInlineTag(tag), expected) << testing::PrintToString(tag);
        if (expected) ++tags;
    }
    EXPECT_GT(tags, 1'000);
}

} // namespace
} // namespace quillmar::Markdown
