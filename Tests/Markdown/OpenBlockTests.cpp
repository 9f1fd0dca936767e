#include "Markdown/OpenBlock.h"

#include "Markdown/Lines.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

class OpenBlockTest : public testing::Test {
protected:
    /// The document is \p text; its lines are then handed to the block one by one.
    void read(std::string text) {
        buffer_ = std::move(text);
        reader_.emplace(buffer_);
    }

    Line next() { return Line(reader_->next()); }

    void openParagraph() { block_.openParagraph(next()); }
    void openIndentedCode(bool isInItem = false) { block_.openIndentedCode(next(), isInItem); }
    void openHTML(bool isInItem = false) { block_.openHTML(next(), isInItem); }
    void openFencedCode(bool isInItem = false) {
        const Line line = next();
        const auto fence = Fence::parse(line.text());
        ASSERT_TRUE(fence);
        block_.openFencedCode(line, *fence, isInItem);
    }

    bool takeNext() {
        const Line line = next();
        ThematicBreaks breaks(line.text());
        return block_.take(line, breaks);
    }

    /// Hands over all further lines, which the block takes, and ends it.
    void takeAll() {
        while (!reader_->atEnd()) EXPECT_TRUE(takeNext());
        block_.close();
    }

    /// The text of the only block, which is of that kind.
    std::string text(BlockKind kind) const {
        if (blocks_.size() != 1) return "(not one block)";
        EXPECT_EQ(static_cast<int>(blocks_[0].kind), static_cast<int>(kind));
        return std::string(blocks_[0].text(buffer_));
    }

    std::string buffer_;
    std::optional<LineReader> reader_;
    std::vector<Block> blocks_;
    OpenBlock block_{buffer_, blocks_};
};

TEST_F(OpenBlockTest, isOpenUntilItIsClosed) {
    read("\na");
    EXPECT_FALSE(block_.isOpen());
    EXPECT_FALSE(takeNext());
    openParagraph();
    EXPECT_TRUE(block_.isOpen());
    EXPECT_TRUE(blocks_.empty());
    block_.close();
    EXPECT_FALSE(block_.isOpen());
    block_.close();
    EXPECT_EQ(text(BlockKind::paragraph), "a");
}

TEST_F(OpenBlockTest, paragraphHoldsItsLinesWithoutLeadingSpaces) {
    read("  a  \n      # b\n\t\u00A0c");
    openParagraph();
    takeAll();
    EXPECT_EQ(text(BlockKind::paragraph), "a  \n# b\n\t\u00A0c");
}

TEST_F(OpenBlockTest, paragraphEndsBeforeABlankLine) {
    read("a\n \t\n");
    openParagraph();
    EXPECT_FALSE(takeNext());
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::paragraph), "a");
}

TEST_F(OpenBlockTest, paragraphBecomesAHeadingWithItsUnderline) {
    read("a\n b\n---\nc");
    openParagraph();
    EXPECT_TRUE(takeNext());
    EXPECT_TRUE(takeNext());
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::heading), "a\nb");
    EXPECT_EQ(blocks_.at(0).level, 2);
}

TEST_F(OpenBlockTest, headingOnOneLineIsNotOpen) {
    read("### a #");
    block_.addHeading(3, reader_->next().substr(4, 1));
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::heading), "a");
    EXPECT_EQ(blocks_.at(0).level, 3);
}

TEST_F(OpenBlockTest, tableBeginsWithTheSecondLineOfAParagraph) {
    read("  | a |\n  |---|\n  | b |\nc|");
    openParagraph();
    takeAll();
    EXPECT_EQ(text(BlockKind::table), "| a |\n  |---|\n  | b |\nc|");
}

TEST_F(OpenBlockTest, tableDoesNotBeginFurtherDown) {
    read("a|b\nc\n-|-");
    openParagraph();
    takeAll();
    EXPECT_EQ(text(BlockKind::paragraph), "a|b\nc\n-|-");
}

TEST_F(OpenBlockTest, tableComesBeforeAnUnderline) {
    read("|a\n-\n|b");
    openParagraph();
    takeAll();
    EXPECT_EQ(text(BlockKind::table), "|a\n-\n|b");
}

TEST_F(OpenBlockTest, tableEndsBeforeWhatIsNoRow) {
    for (const std::string line : {"", "b", "# b | c", "> |", "- |"}) {
        blocks_.clear();
        read("|a|\n|-|\n" + line);
        openParagraph();
        EXPECT_TRUE(takeNext());
        EXPECT_FALSE(takeNext()) << line;
        EXPECT_EQ(text(BlockKind::table), "|a|\n|-|") << line;
    }
}

TEST_F(OpenBlockTest, fencedCodeHasItsLanguageInFront) {
    read("  ~~~ js x\n    a\n b\nc\n");
    openFencedCode();
    takeAll();
    EXPECT_EQ(text(BlockKind::fencedCode), "js\n  a\nb\nc\n");
}

TEST_F(OpenBlockTest, fencedCodeTakesItsClosingFence) {
    read("```\n# a\n~~~\n``` b\n  `````\nc");
    openFencedCode();
    for (int line = 0; line < 3; ++line) EXPECT_TRUE(takeNext());
    EXPECT_TRUE(block_.isOpen());
    EXPECT_TRUE(takeNext());
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::fencedCode), "\n# a\n~~~\n``` b");
}

TEST_F(OpenBlockTest, fencedCodeKeepsBlankLinesAtItsEnd) {
    read("  ```\na\n     \n\n");
    openFencedCode();
    takeAll();
    EXPECT_EQ(text(BlockKind::fencedCode), "\na\n   \n\n");
}

TEST_F(OpenBlockTest, fencedCodeInAnItemHasNoBlankLinesAtItsEnd) {
    read("```\n\na\n     \nb\n\n");
    openFencedCode(true);
    takeAll();
    EXPECT_EQ(text(BlockKind::fencedCode), "\n\na\n\nb");
}

TEST_F(OpenBlockTest, indentedCodeLosesFourSpacesOfEveryLine) {
    read("    a\n      b\n  \n      \n    \tc");
    openIndentedCode();
    takeAll();
    EXPECT_EQ(text(BlockKind::indentedCode), "a\n  b\n\n  \n\tc");
}

TEST_F(OpenBlockTest, indentedCodeEndsAtALineLessIndented) {
    read("    a\n\n      \n   b");
    openIndentedCode();
    EXPECT_TRUE(takeNext());
    EXPECT_TRUE(takeNext());
    EXPECT_FALSE(takeNext());
    EXPECT_EQ(text(BlockKind::indentedCode), "a"); // without the blank lines at its end
}

TEST_F(OpenBlockTest, htmlGoesOnToABlankLine) {
    read("  <b>\n   # a \n</b>\n \nc");
    openHTML();
    EXPECT_TRUE(takeNext());
    EXPECT_TRUE(takeNext());
    EXPECT_FALSE(takeNext());
    EXPECT_EQ(text(BlockKind::html), "  <b>\n   # a \n</b>");
}

TEST_F(OpenBlockTest, commentGoesOnToTheLineThatClosesIt) {
    read(" <!-- a\n \n\n  # b\n--> c\nd");
    openHTML();
    for (int line = 0; line < 4; ++line) EXPECT_TRUE(takeNext());
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::html), " <!-- a\n \n\n  # b\n--> c");
}

TEST_F(OpenBlockTest, commentMayBeOneLine) {
    read("<!-->\na");
    openHTML();
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::html), "<!-->");
}

TEST_F(OpenBlockTest, commentMayBeClosedByALineThatIsMoved) {
    read("<!--\n  \n-->\na"); // over the spaces of the one before, of which an item keeps none
    openHTML(true);
    EXPECT_TRUE(takeNext());
    EXPECT_TRUE(takeNext());
    EXPECT_FALSE(block_.isOpen());
    EXPECT_EQ(text(BlockKind::html), "<!--\n\n-->");
}

TEST_F(OpenBlockTest, commentInAnItemHasNoBlankLinesAtItsEnd) {
    read("<!--\n   \na\n  \n");
    openHTML(true);
    takeAll();
    EXPECT_EQ(text(BlockKind::html), "<!--\n\na");
}

TEST_F(OpenBlockTest, oneFollowsTheOther) {
    read("a\n***\n    b\nc");
    openParagraph();
    EXPECT_FALSE(takeNext());
    openIndentedCode();
    const Line line = next();
    ThematicBreaks breaks(line.text());
    EXPECT_FALSE(block_.take(line, breaks));
    block_.openParagraph(line);
    block_.close();
    ASSERT_EQ(blocks_.size(), 3U);
    EXPECT_EQ(blocks_[0].text(buffer_), "a");
    EXPECT_EQ(blocks_[1].text(buffer_), "b");
    EXPECT_EQ(blocks_[2].text(buffer_), "c");
}

} // namespace
} // namespace quillmar::Markdown
