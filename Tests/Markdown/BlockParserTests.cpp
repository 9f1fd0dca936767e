#include "Markdown/BlockParser.h"

#include "Markdown/Lines.h"
#include "Tests/Helpers/Markdown.h"

#include <array>
#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

std::string described(const Block& block, std::string_view document) {
    constexpr std::array<std::string_view, 11> names{"paragraph", "heading", "fence", "code", "html", "break",
                                                     "table",     "quotes",  "list",  "item", "close"};
    std::string step(names.at(static_cast<std::size_t>(block.kind)));
    if (block.level > 0) step.append(" ").append(std::to_string(block.level));
    const bool isCounted = block.kind == BlockKind::quotes || block.kind == BlockKind::close || block.isOrdered;
    if (isCounted) step.append(" ").append(std::to_string(block.number));
    if (block.isLoose) step += " loose";
    if (block.holdsTasks) step += " of tasks";
    if (block.kind == BlockKind::list) step += ", item";
    if (block.hasTask) step += block.isChecked ? " done" : " task";
    if (block.size > 0) step.append(" \"").append(block.text(document)).append("\"");
    return step;
}

/// One step behind the other.
std::string described(std::span<const Block> blocks, std::string_view document) {
    std::string steps;
    for (const Block& block : blocks) {
        if (!steps.empty()) steps += ", ";
        steps += described(block, document);
    }
    return steps;
}

/// Adds the lines of a document one by one.
class BlockParserTest : public testing::Test {
protected:
    void read(std::string document) {
        buffer_ = std::move(document);
        reader_.emplace(buffer_);
    }

    void addNext() { parser_.add(reader_->next()); }

    /// Adds the next line; true when that leaves the parser between blocks.
    bool endsBlocks() {
        addNext();
        return parser_.isBetweenBlocks();
    }

    std::string described() const { return Markdown::described(parser_.blocks(), buffer_); }

    std::string buffer_;
    std::optional<LineReader> reader_;
    BlockParser parser_{buffer_};
};

/// All blocks of \p document.
std::string blocks(std::string document) {
    BlockParser parser(document);
    for (LineReader reader(document); !reader.atEnd();) parser.add(reader.next());
    parser.finish();
    return described(parser.blocks(), document);
}

TEST(BlockParser, readsBlocksInTheirOrder) {
    EXPECT_EQ(blocks("a\n# b\n***\n    c\n~~~d\ne\n~~~\n<f>\n\n|g|\n|-|"),
              "paragraph \"a\", heading 1 \"b\", break, code \"c\", fence \"d\ne\", html \"<f>\", table "
              "\"|g|\n|-|\"");
}

TEST(BlockParser, opensAndClosesQuotesInOneStep) {
    EXPECT_EQ(blocks("> > > a"), "quotes 3, paragraph \"a\", close 3");
}

TEST(BlockParser, opensFurtherQuotesInAnotherStep) {
    EXPECT_EQ(blocks("> a\n> > b"), "quotes 1, paragraph \"a\", quotes 1, paragraph \"b\", close 2");
}

TEST(BlockParser, closesSomeOfTheQuotesThatWereOpenedInOneStep) {
    EXPECT_EQ(blocks("> > > a\n>\n> b"), "quotes 3, paragraph \"a\", close 2, paragraph \"b\", close 1");
}

TEST(BlockParser, closesInOneStepWhatEndsOnSeveralLines) {
    EXPECT_EQ(blocks("- > a\n\nb"), "list, item, quotes 1, paragraph \"a\", close 2, paragraph \"b\"");
}

TEST(BlockParser, readsItemsOneAfterTheOther) {
    EXPECT_EQ(blocks("- a\n- b"), "list, item, paragraph \"a\", item, paragraph \"b\", close 1");
    EXPECT_EQ(blocks("-\n-"), "list, item, item, close 1");
}

TEST(BlockParser, numbersAListByItsFirstItem) {
    EXPECT_EQ(blocks("7. a\n3. b"), "list 7, item, paragraph \"a\", item, paragraph \"b\", close 1");
}

TEST(BlockParser, closesInnerContainersBeforeTheNextItem) {
    EXPECT_EQ(blocks("- > 1. a\n- b"),
              "list, item, quotes 1, list 1, item, paragraph \"a\", close 2, item, paragraph \"b\", close 1");
}

TEST(BlockParser, marksLooseLists) {
    EXPECT_EQ(blocks("- a\n\n- b"), "list loose, item, paragraph \"a\", item, paragraph \"b\", close 1");
    EXPECT_EQ(blocks("- - a\n  - b\n\n- c"),
              "list loose, item, list, item, paragraph \"a\", item, paragraph \"b\", close 1, item, "
              "paragraph \"c\", close 1");
}

TEST(BlockParser, marksTasksAndTheirLists) {
    EXPECT_EQ(blocks("- [x] a\n- [ ]\n- b"),
              "list of tasks, item done, paragraph \"a\", item task, item, paragraph \"b\", close 1");
}

TEST(BlockParser, readsBlocksBehindATask) {
    EXPECT_EQ(blocks("- [ ]  # a"), "list of tasks, item task, heading 1 \"a\", close 1");
    EXPECT_EQ(blocks("1. [x] - [ ] a"),
              "list 1 of tasks, item done, list of tasks, item task, paragraph \"a\", close 2");
}

TEST(BlockParser, readsSeveralMarkersOnOneLine) {
    EXPECT_EQ(blocks("> - > 2) # a"), "quotes 1, list, item, quotes 1, list 2, item, heading 1 \"a\", close 4");
    EXPECT_EQ(blocks("- + ***"), "list, item, list, item, break, close 2");
}

TEST(BlockParser, addsLazyLinesToTheInnermostParagraph) {
    EXPECT_EQ(blocks("> - a\nb"), "quotes 1, list, item, paragraph \"a\nb\", close 2");
}

TEST(BlockParser, joinsTheLinesOfABlockWithoutTheirMarkers) {
    EXPECT_EQ(blocks("> ~~~\n> a\n>\n>  b\n\nc"), "quotes 1, fence \"\na\n\n b\", close 1, paragraph \"c\"");
}

TEST(BlockParser, endsABlockWithItsContainer) {
    EXPECT_EQ(blocks("> a\n\nb"), "quotes 1, paragraph \"a\", close 1, paragraph \"b\"");
    EXPECT_EQ(blocks("- ~~~\n  a\n- b"), "list, item, fence \"\na\", item, paragraph \"b\", close 1");
}

TEST_F(BlockParserTest, isBetweenBlocksAtFirst) { EXPECT_TRUE(parser_.isBetweenBlocks()); }

TEST_F(BlockParserTest, isBetweenBlocksWhereNothingIsOpen) {
    read("# a\n***\nb\n\n~~~\n\n~~~\n    c\n\nd\n===\n");
    EXPECT_TRUE(endsBlocks()); // a heading
    EXPECT_TRUE(endsBlocks()); // a break
    EXPECT_FALSE(endsBlocks());
    EXPECT_TRUE(endsBlocks()); // a paragraph
    EXPECT_FALSE(endsBlocks());
    EXPECT_FALSE(endsBlocks()); // a blank line in a fence
    EXPECT_TRUE(endsBlocks());  // a fence
    EXPECT_FALSE(endsBlocks());
    EXPECT_FALSE(endsBlocks()); // a blank line in code
    EXPECT_FALSE(endsBlocks());
    EXPECT_TRUE(endsBlocks()); // a heading and its underline
    EXPECT_TRUE(endsBlocks());
}

TEST_F(BlockParserTest, isNotBetweenBlocksInContainers) {
    read("> # a\n\n- # b\n\n\nc");
    EXPECT_FALSE(endsBlocks());
    EXPECT_TRUE(endsBlocks()); // the quote has ended
    EXPECT_FALSE(endsBlocks());
    EXPECT_FALSE(endsBlocks()); // the list may go on
    EXPECT_FALSE(endsBlocks());
    EXPECT_FALSE(endsBlocks());
}

TEST_F(BlockParserTest, forgetsWhatWasTaken) {
    read("> a\n\n- b\n- c");
    addNext();
    EXPECT_TRUE(endsBlocks());
    EXPECT_EQ(described(), "quotes 1, paragraph \"a\", close 1");
    parser_.clear();
    EXPECT_EQ(described(), "");
    addNext();
    addNext();
    parser_.finish();
    EXPECT_EQ(described(), "list, item, paragraph \"b\", item, paragraph \"c\", close 1");
}

TEST_F(BlockParserTest, nestsWithoutLimit) {
    constexpr std::size_t depth = 100'000;
    read(repeated("- ", depth) + "a\n" + repeated(">", depth) + "b");
    addNext();
    EXPECT_EQ(parser_.blocks().size(), depth);
    addNext();
    parser_.finish();
    const auto steps = parser_.blocks();
    ASSERT_EQ(steps.size(), depth + 5);
    EXPECT_EQ(Markdown::described(steps[depth], buffer_), "paragraph \"a\"");
    EXPECT_EQ(Markdown::described(steps[depth + 1], buffer_), "close 100000");
    EXPECT_EQ(Markdown::described(steps[depth + 2], buffer_), "quotes 100000");
    EXPECT_EQ(Markdown::described(steps[depth + 4], buffer_), "close 100000");
}

} // namespace
} // namespace quillmar::Markdown
