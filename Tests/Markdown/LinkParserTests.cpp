#include "Markdown/LinkParser.h"

#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

class LinkParserTest : public testing::Test {
protected:
    void define(std::string_view line) { EXPECT_TRUE(references_.collect(line)) << line; }

    void read(std::string text) {
        text_ = std::move(text);
        backticks_.reset(text_);
        parser_.reset(text_);
    }

    std::optional<Link> parse(std::size_t open) { return parse(open, text_.size()); }
    std::optional<Link> parse(std::size_t open, std::size_t limit, std::size_t walk = BracketPairs::noWalk) {
        const Link* found = parser_.parseLink(open, limit, walk);
        return found != nullptr ? std::optional(*found) : std::nullopt;
    }

    /// What the link at the start of \p text is made of: "text > url", "text > url | title", and what follows
    /// it; "(none)" without one.
    std::string link(std::string text) {
        read(std::move(text));
        const auto found = parse(0);
        if (!found) return "(none)";
        std::string described(found->text);
        described.append(" > ").append(found->url);
        if (found->title) described.append(" | ").append(*found->title);
        if (found->end < text_.size()) described.append(", ").append(text_, found->end);
        return described;
    }

    std::string text_;
    LinkReferences references_;
    Backticks backticks_;
    LinkParser parser_{references_, backticks_};
};

TEST_F(LinkParserTest, readsInlineLinks) {
    EXPECT_EQ(link("[a](b)"), "a > b");
    EXPECT_EQ(link("[a](b 'c') d"), "a > b | c,  d");
    EXPECT_EQ(link("[]()"), " > ");
}

TEST_F(LinkParserTest, readsFullReferences) {
    define("[b]: c 'd'");
    EXPECT_EQ(link("[a][b] e"), "a > c | d,  e");
    EXPECT_EQ(link("[a][ B ]"), "a > c | d");
}

TEST_F(LinkParserTest, readsCollapsedReferences) {
    define("[a b]: c");
    EXPECT_EQ(link("[a b][]d"), "a b > c, d");
}

TEST_F(LinkParserTest, readsShortcuts) {
    define("[a b]: c");
    EXPECT_EQ(link("[A  b] (d)"), "A  b > c,  (d)");
}

TEST_F(LinkParserTest, leavesTheTextRaw) {
    EXPECT_EQ(link("[*a* `]` \\] [b](c)](d)"), "*a* `]` \\] [b](c) > d");
}

TEST_F(LinkParserTest, findsNoneWithoutADefinition) {
    for (const char* text : {"[a]", "[a][]", "[a][b]", "[]", "[][]"}) EXPECT_EQ(link(text), "(none)") << text;
}

TEST_F(LinkParserTest, findsNoneWithoutTheClosingBracket) {
    for (const char* text : {"[", "[a", "[a(b)", "[a [b](c)", "[a\\](b)", "[`a](b)`"})
        EXPECT_EQ(link(text), "(none)") << text;
}

TEST_F(LinkParserTest, doesNotTakeAFailedLinkForAShortcut) {
    define("[a]: c");
    EXPECT_EQ(link("[a](b c)"), "(none)");
    EXPECT_EQ(link("[a](b"), "(none)");
    EXPECT_EQ(link("[a][b]"), "(none)");
    EXPECT_EQ(link("[a][b"), "(none)");
    EXPECT_EQ(link("[a] [b]"), "a > c,  [b]");
}

TEST_F(LinkParserTest, endsALabelAtTheFirstBracket) {
    define("[b[c]: d");
    EXPECT_EQ(link("[a][b[c]]"), "a > d, ]");
    EXPECT_EQ(link("[a][b\\]]"), "(none)");
}

TEST_F(LinkParserTest, takesNoTextWithBracketsForALabel) {
    define("[a]: b");
    EXPECT_EQ(link("[[a]]"), "(none)");
    EXPECT_EQ(link("[[a]][]"), "(none)");
    EXPECT_EQ(link("[[a]][a]"), "[a] > b");
    EXPECT_EQ(link("[`]`]"), "(none)");
}

TEST_F(LinkParserTest, looksNoFurtherThanTheLimit) {
    define("[a]: c");
    read("[a](b)");
    EXPECT_FALSE(parse(0, 2));
    EXPECT_FALSE(parse(0, 5));
    EXPECT_TRUE(parse(0, 6));
}

TEST_F(LinkParserTest, takesAShortcutForCompleteAtTheLimit) {
    define("[a]: c");
    read("[a](b)");
    const auto found = parse(0, 3);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->url, "c");
    EXPECT_EQ(found->end, 3U);
}

TEST_F(LinkParserTest, findsLinksInTheTextOfOthers) {
    read("[a [b](c) [d](e) f](g)");
    const auto outer = parse(0);
    ASSERT_TRUE(outer);
    const std::size_t limit = 1 + outer->text.size();
    const auto first = parse(3, limit, outer->walk);
    const auto second = parse(10, limit, outer->walk);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->url, "c");
    EXPECT_EQ(second->url, "e");
}

TEST_F(LinkParserTest, doesNotReachOutOfTheTextOfALink) {
    define("[b]: c");
    read("[a [b]](d)");
    const auto outer = parse(0);
    ASSERT_TRUE(outer);
    const auto inner = parse(3, 6, outer->walk);
    ASSERT_TRUE(inner); // a shortcut: the bracket behind it is the outer one's
    EXPECT_EQ(inner->url, "c");
    EXPECT_EQ(inner->end, 6U);
}

TEST_F(LinkParserTest, findsLinksBehindBracketsThatAreText) {
    read("[a] [b [c](d) [e](f)");
    EXPECT_FALSE(parse(0));
    EXPECT_FALSE(parse(4));
    ASSERT_TRUE(parse(7));
    const auto last = parse(14);
    ASSERT_TRUE(last);
    EXPECT_EQ(last->url, "f");
}

TEST_F(LinkParserTest, isNotLedAwayByBackticksInTagsAndAddresses) {
    read("[<aa:`> [b](c) ` d](e)");
    ASSERT_TRUE(parse(0));
    const auto inner = parse(8);
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->text, "b");
    EXPECT_EQ(inner->url, "c");
}

TEST_F(LinkParserTest, readsOneTextAfterAnother) {
    EXPECT_EQ(link("[a](b c"), "(none)");
    EXPECT_EQ(link("[a] b"), "(none)");
    EXPECT_EQ(link("[abcdef](b)"), "abcdef > b");
}

} // namespace
} // namespace quillmar::Markdown
