#include "Markdown/Line.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

TEST(Line, isIndentedByItsLeadingSpaces) {
    EXPECT_EQ(Line("  a").indentation(), 2U);
    EXPECT_EQ(Line("a  ").indentation(), 0U);
    EXPECT_EQ(Line("  \t  a").indentation(), 2U);
    EXPECT_EQ(Line(" \u00A0 a").indentation(), 1U);
    EXPECT_EQ(Line("   ").indentation(), 3U);
    EXPECT_EQ(Line("").indentation(), 0U);
}

TEST(Line, isBlankWithNothingButSpacesAndTabs) {
    EXPECT_TRUE(Line("").isBlank());
    EXPECT_TRUE(Line(" \t ").isBlank());
    EXPECT_FALSE(Line("  a").isBlank());
    EXPECT_FALSE(Line("\v").isBlank());
    EXPECT_FALSE(Line("\u00A0").isBlank());
}

TEST(Line, hasItsContentBehindWhatTrimmingRemoves) {
    EXPECT_EQ(Line(" \t\u00A0\u3000 \ta b ").content(), "a b ");
    EXPECT_EQ(Line("a").content(), "a");
}

TEST(Line, keepsOtherWhiteSpaceInItsContent) {
    for (const std::string_view kept : {"\va", "\fa", "\u0085a", "\u2028a"})
        EXPECT_EQ(Line(std::string(" ").append(kept)).first(), kept.front());
}

TEST(Line, hasNoContentWithoutAnythingElse) {
    for (const std::string_view text : {"", "  ", " \t", "\u00A0", " \u2003\t\u00A0"}) {
        EXPECT_EQ(Line(text).content(), "") << text;
        EXPECT_EQ(Line(text).first(), '\0') << text;
    }
}

TEST(Line, beginsWithTheFirstByteOfItsContent) {
    EXPECT_EQ(Line("  > a").first(), '>');
    EXPECT_EQ(Line("\u00A0- a").first(), '-');
    EXPECT_EQ(Line(" \u00E9").first(), '\xC3');
}

TEST(Line, keepsItsText) { EXPECT_EQ(Line(" \u00A0 a ").text(), " \u00A0 a "); }

TEST(Line, isAViewIntoItsText) {
    const std::string text = "  \ta";
    EXPECT_EQ(Line(text).text().data(), text.data());
    EXPECT_EQ(Line(text).content().data(), text.data() + 3);
}

TEST(Line, isIndentedAsCodeByFourSpaces) {
    EXPECT_FALSE(Line("   a").isIndentedAsCode());
    EXPECT_TRUE(Line("    a").isIndentedAsCode());
    EXPECT_FALSE(Line("  \t  a").isIndentedAsCode());
    EXPECT_FALSE(Line("\u00A0    a").isIndentedAsCode());
}

TEST(Line, losesSpacesFromTheLeft) {
    Line line("     > a");
    line.dropIndentation(2);
    EXPECT_EQ(line.text(), "   > a");
    EXPECT_EQ(line.indentation(), 3U);
    EXPECT_FALSE(line.isIndentedAsCode());
    EXPECT_EQ(line.content(), "> a");
    EXPECT_EQ(line.first(), '>');
}

TEST(Line, keepsWhatStandsBehindTheSpacesThatItLoses) {
    Line line("  \t\u00A0a");
    line.dropIndentation(2);
    EXPECT_EQ(line.text(), "\t\u00A0a");
    EXPECT_EQ(line.indentation(), 0U);
    EXPECT_EQ(line.content(), "a");
}

TEST(Line, staysBlankWhenItLosesItsSpaces) {
    Line line("  ");
    line.dropIndentation(2);
    EXPECT_TRUE(line.isBlank());
    EXPECT_EQ(line.text(), "");
    EXPECT_EQ(line.first(), '\0');
}

TEST(Line, mayHoldBytesThatAreNotUTF8) {
    EXPECT_EQ(Line(" \xC2").content(), "\xC2");
    EXPECT_EQ(Line("\xA0 a").content(), "\xA0 a");
    EXPECT_EQ(Line("\u00A0\xE3\x80").content(), "\xE3\x80");
}

} // namespace
} // namespace quillmar::Markdown
