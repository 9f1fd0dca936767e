#include "Markdown/Containers.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

class ContainersTest : public testing::Test {
protected:
    /// What a line does, and what is left of it.
    struct Arrived {
        std::string rest;
        std::size_t closed = 0;
        bool beginsItem = false;
    };

    Arrived enter(std::string_view text) {
        Line line(text);
        ThematicBreaks breaks(text);
        const Containers::Arrival arrival = containers_.enter(line, breaks);
        EXPECT_EQ(arrival.endsBlock(), arrival.closed > 0 || arrival.beginsItem);
        return {.rest = std::string(line.text()), .closed = arrival.closed, .beginsItem = arrival.beginsItem};
    }

    /// Lets \p text enter, which closes nothing; returns what is left of it.
    std::string inside(std::string_view text) {
        const Arrived arrived = enter(text);
        EXPECT_EQ(arrived.closed, 0U) << text;
        EXPECT_FALSE(arrived.beginsItem) << text;
        return arrived.rest;
    }

    /// Opens what \p text, of ">" and list markers, opens; returns the rest.
    std::string_view open(std::string_view text) {
        for (;;) {
            const Line line(text);
            if (line.first() == '>') {
                text = text.substr(text.starts_with("> ") ? 2 : 1);
                containers_.openQuote(Line(text));
            } else if (const auto marker = ListMarker::parse(line)) {
                blocks_.emplace_back().kind = BlockKind::list;
                containers_.openList(*marker, blocks_.size() - 1);
                text = marker->content;
            } else {
                return text;
            }
        }
    }

    /// Of the list that was opened as the \p index-th.
    bool isLoose(std::size_t index) const { return blocks_.at(index).isLoose; }

    std::vector<Block> blocks_;
    Containers containers_{blocks_};
};

TEST_F(ContainersTest, areCountedOneByOne) {
    EXPECT_TRUE(containers_.isEmpty());
    EXPECT_FALSE(containers_.isInItem());
    open("> > - > 1. a");
    EXPECT_EQ(containers_.count(), 5U);
    EXPECT_FALSE(containers_.isEmpty());
    EXPECT_TRUE(containers_.isInItem());
    open("> a");
    EXPECT_EQ(containers_.count(), 6U);
    EXPECT_FALSE(containers_.isInItem());
}

TEST_F(ContainersTest, takeTheirMarkersAndIndentation) {
    open("> > - > a");
    EXPECT_EQ(inside("> >   > b"), "b");
    EXPECT_EQ(inside(">>   >   c"), "  c"); // one space belongs to the marker before it
    EXPECT_EQ(inside("> >   > > d"), "> d");
}

TEST_F(ContainersTest, ofQuotesAreEnteredLazilyByText) {
    open("> > > a");
    EXPECT_EQ(inside("> b"), "b");
    EXPECT_EQ(inside("  c"), "  c");
    EXPECT_EQ(inside("    > d"), "    > d");
    EXPECT_EQ(inside("2. e"), "2. e");
    EXPECT_EQ(containers_.count(), 3U);
}

TEST_F(ContainersTest, ofQuotesEndWhereAnotherBlockInterrupts) {
    open("> > > a");
    EXPECT_EQ(enter("> > # b").closed, 1U);
    EXPECT_EQ(enter("> - c").closed, 1U);
    EXPECT_EQ(enter("***").closed, 1U);
    EXPECT_TRUE(containers_.isEmpty());
}

TEST_F(ContainersTest, ofQuotesEndAtABlankLine) {
    open("> > > a");
    EXPECT_EQ(enter("> >").closed, 1U);
    EXPECT_EQ(enter("  ").closed, 2U);
    EXPECT_TRUE(containers_.isEmpty());
}

TEST_F(ContainersTest, ofQuotesEndAtTextBehindTheirBlankLine) {
    open("> > > a");
    EXPECT_EQ(inside("> > >"), "");
    const Arrived text = enter("b"); // the outer two have ">" for their last line
    EXPECT_EQ(text.closed, 1U);
    EXPECT_EQ(text.rest, "b");
    EXPECT_EQ(inside("c"), "c");
    open("> >");
    EXPECT_EQ(enter("d").closed, 1U); // their first line may be that blank line
}

TEST_F(ContainersTest, ofQuotesGoOnBehindTheirBlankLineWithTheirMarkers) {
    open("> > a");
    EXPECT_EQ(inside("> >"), "");
    EXPECT_EQ(inside("> > b"), "b");
    EXPECT_EQ(inside("c"), "c"); // the blank line is forgotten
}

TEST_F(ContainersTest, ofListsTakeAnotherItem) {
    open("- a");
    const Arrived arrived = enter("-   b");
    ASSERT_TRUE(arrived.beginsItem);
    EXPECT_EQ(arrived.closed, 0U);
    EXPECT_EQ(arrived.rest, "b");
    EXPECT_EQ(inside("    c"), "c"); // the new item's column
    EXPECT_FALSE(isLoose(0));
}

TEST_F(ContainersTest, ofListsForgetABlankLineWithTheNextItem) {
    open("- a");
    EXPECT_EQ(inside(""), "");
    EXPECT_TRUE(enter("- b").beginsItem);
    EXPECT_TRUE(isLoose(0));
    EXPECT_EQ(inside("c"), "c");
}

TEST_F(ContainersTest, ofListsHoldMarkersOfOthersIndentedByTwoSpaces) {
    open("100. a");
    EXPECT_EQ(inside("  - b"), "- b");
    EXPECT_EQ(inside("   2. c"), "2. c");
    EXPECT_EQ(enter(" - d").closed, 1U);
}

TEST_F(ContainersTest, ofListsEndWhatAnItemHoldsAtTheNext) {
    open("- a");
    open("> 1. b");
    const Arrived arrived = enter("- c");
    EXPECT_EQ(arrived.closed, 2U);
    EXPECT_TRUE(arrived.beginsItem);
    EXPECT_EQ(containers_.count(), 1U);
}

TEST_F(ContainersTest, ofListsAreEnteredLazilyByTextThatIsTrimmed) {
    open("- a");
    EXPECT_EQ(inside("b  "), "b");
    EXPECT_EQ(inside(" \u00A0c"), "c");
    EXPECT_EQ(inside("   d"), " d"); // as deep as the content
    EXPECT_EQ(enter("> e").closed, 1U);
}

TEST_F(ContainersTest, ofListsEndAtTextBehindABlankLine) {
    open("- - a");
    EXPECT_EQ(inside(""), "");
    const Arrived arrived = enter("  b");
    EXPECT_EQ(arrived.closed, 1U);
    EXPECT_EQ(arrived.rest, "b");
    EXPECT_EQ(inside("c"), "c"); // the blank line is forgotten
    EXPECT_EQ(inside(""), "");
    EXPECT_EQ(enter("d").closed, 1U);
}

TEST_F(ContainersTest, ofListsAreLooseWithABlankLineInAnItem) {
    open("- - a");
    inside("");
    inside("    b");
    EXPECT_TRUE(isLoose(0));
    EXPECT_TRUE(isLoose(1));
}

TEST_F(ContainersTest, ofListsAreNotLooseByABlankLineBeforeTheTextOfAnItem) {
    open("-");
    inside("");
    inside("  a");
    EXPECT_FALSE(isLoose(0));
    inside("");
    inside("  b");
    EXPECT_TRUE(isLoose(0));
}

TEST_F(ContainersTest, ofListsHoldALineOfNoBreakSpacesAsABlankOne) {
    open("- - a");
    EXPECT_EQ(inside("\u00A0"), "");
    EXPECT_EQ(enter("b").closed, 1U); // the inner one has seen a blank line, the outer one text
    EXPECT_EQ(containers_.count(), 1U);
}

TEST_F(ContainersTest, endAtABlankLineFromTheFirstQuoteWithoutMarkerOn) {
    open("- 1. > - > a");
    EXPECT_EQ(enter("     >").closed, 1U);
    EXPECT_EQ(containers_.count(), 4U);
    EXPECT_EQ(enter("").closed, 2U);
    EXPECT_EQ(containers_.count(), 2U);
    EXPECT_EQ(inside("     b"), "b");
    EXPECT_TRUE(isLoose(0));
    EXPECT_TRUE(isLoose(1));
}

TEST_F(ContainersTest, areEnteredLazilyAtEveryDepth) {
    open("> - > 1. > a");
    EXPECT_EQ(inside("b"), "b");
    EXPECT_EQ(inside("> c"), "c");
    EXPECT_EQ(inside(">   > d"), "d");
    EXPECT_EQ(containers_.count(), 5U);
}

TEST_F(ContainersTest, areEnteredLazilyUpToAQuoteThatSawABlankLine) {
    open("> - > a");
    EXPECT_EQ(inside(">   >"), "");
    EXPECT_EQ(enter("b").closed, 1U);
    EXPECT_EQ(containers_.count(), 2U);
    EXPECT_TRUE(containers_.isInItem());
}

TEST_F(ContainersTest, areEnteredLazilyUpToAListThatSawABlankLine) {
    open("- > - a");
    EXPECT_EQ(inside("  >"), "");
    EXPECT_EQ(enter("b").closed, 2U); // and so has the quote around it
    EXPECT_EQ(containers_.count(), 1U);
}

TEST_F(ContainersTest, areCutInTheMiddleOfARunOfQuotesByABlankLine) {
    open("> > > a");
    EXPECT_EQ(enter(">").closed, 2U);
    EXPECT_EQ(containers_.count(), 1U);
    EXPECT_EQ(enter("b").closed, 1U); // the blank line is that of the one that was left
}

TEST_F(ContainersTest, areCutInTheMiddleOfARunOfQuotesAndGoOnFromThere) {
    open("> > > > a");
    EXPECT_EQ(enter("> > - b").closed, 2U);
    open("- b");
    EXPECT_EQ(containers_.count(), 3U);
    EXPECT_EQ(inside("> >   c"), "c");
    EXPECT_EQ(enter("> > > d").closed, 1U);
    open("> d");
    EXPECT_EQ(containers_.count(), 3U);
    EXPECT_EQ(inside("> > > e"), "e");
    EXPECT_EQ(enter("").closed, 3U);
}

} // namespace
} // namespace quillmar::Markdown
