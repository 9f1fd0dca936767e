#include "Markdown/LinkDestinations.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillmar::Markdown {
namespace {

/// What a target is made of, as one text: "url", "url|title"; "(none)" without one.
std::string described(const LinkTarget* target) {
    if (!target) return "(none)";
    std::string text(target->url);
    if (target->title) text.append("|").append(*target->title);
    return text;
}

/// The target of "[a]" and \p text, whose end is not looked at.
std::optional<LinkTarget> parsed(std::string_view text) {
    LinkDestinations destinations;
    destinations.reset(text);
    const LinkTarget* found = destinations.parse(0, text.size());
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

/// The target of "[a]" and \p text, which must be all of it.
std::string target(std::string_view text) {
    const auto found = parsed(text);
    if (found && found->end != text.size()) return "(not all)";
    return described(found ? &*found : nullptr);
}

TEST(LinkDestinations, areCharactersWithoutWhiteSpace) {
    EXPECT_EQ(target("(a)"), "a");
    EXPECT_EQ(target("(../a%20b.md#c?d=<e>)"), "../a%20b.md#c?d=<e>");
    EXPECT_EQ(target("(\u00E9\u200B\xFF)"), "\u00E9\u200B\xFF");
    EXPECT_EQ(target("()"), "");
}

TEST(LinkDestinations, endAtTheirParenthesis) {
    const auto found = parsed("(a)b)");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->url, "a");
    EXPECT_EQ(found->end, 3U);
}

TEST(LinkDestinations, mayHoldParenthesesInPairs) {
    EXPECT_EQ(target("(a(b(c))d())"), "a(b(c))d()");
    EXPECT_EQ(target("((a)"), "(none)");
}

TEST(LinkDestinations, mayHoldEscapedParentheses) {
    EXPECT_EQ(target("(a\\)\\(b)"), "a\\)\\(b");
    EXPECT_EQ(target("(a\\\\)"), "a\\\\");
    EXPECT_EQ(target("(a\\ b)"), "a\\ b");
    EXPECT_EQ(target("(a\\)"), "(none)");
    EXPECT_EQ(target("(a\\"), "(none)");
}

TEST(LinkDestinations, mayStandBetweenWhiteSpaceOfAnyKind) {
    EXPECT_EQ(target("(\u3000\t\na\u00A0\u2028 )"), "a");
    EXPECT_EQ(target("( )"), "");
    EXPECT_EQ(target("( (a) )"), "(a)");
}

TEST(LinkDestinations, inAngleBracketsAreTakenAsTheyStand) {
    EXPECT_EQ(target("(<a b)\\(\n'c>)"), "a b)\\(\n'c");
    EXPECT_EQ(target("( < > )"), " ");
    EXPECT_EQ(target("(<>)"), "");
    EXPECT_EQ(target("(<a>b)"), "(none)");
}

TEST(LinkDestinations, withoutAClosingAngleBracketAreOrdinary) {
    EXPECT_EQ(target("(<a)"), "<a");
    EXPECT_EQ(target("(<a(b))"), "<a(b)");
    EXPECT_EQ(target("(<a b)"), "(none)");
}

TEST(LinkDestinations, areOrdinaryWhenTheAngleBracketClosesBehindTheLimit) {
    LinkDestinations destinations;
    destinations.reset("(<a)b>)");
    EXPECT_EQ(described(destinations.parse(0, 7)), "a)b");
    EXPECT_EQ(described(destinations.parse(0, 5)), "<a");
}

TEST(LinkDestinations, mayHaveATitleOfThreeKinds) {
    EXPECT_EQ(target("(a \"b c\")"), "a|b c");
    EXPECT_EQ(target("(a 'b')"), "a|b");
    EXPECT_EQ(target("(a (b))"), "a|b");
    EXPECT_EQ(target("(<a>\n\"\")"), "a|");
}

TEST(LinkDestinations, titleEndsAtTheFirstCharacterThatCanCloseIt) {
    EXPECT_EQ(target("(a \"b\\\")"), "a|b\\");
    EXPECT_EQ(target("(a (b(c))"), "a|b(c");
    EXPECT_EQ(target("(a 'b\"c)d')"), "a|b\"c)d");
    EXPECT_EQ(target("(a \"b\" c\")"), "(none)");
}

TEST(LinkDestinations, titleStandsBetweenWhiteSpace) {
    EXPECT_EQ(target("(a\u00A0'b'\u3000)"), "a|b");
    EXPECT_EQ(target("(a'b')"), "a'b'");
    EXPECT_EQ(target("(<a>'b')"), "(none)");
    EXPECT_EQ(target("( 'b')"), "'b'"); // the first word is the destination
}

TEST(LinkDestinations, areFollowedByNothingElse) {
    for (const std::string_view text :
         {"(a b)", "(a 'b' c)", "(a 'b", "(a \"b)", "(a (b)", "(a <b>)", "(a 'b'"})
        EXPECT_EQ(target(text), "(none)") << text;
}

TEST(LinkDestinations, areNoneWithoutTheirEnd) {
    for (const std::string_view text : {"(", "( ", "(a", "(a ", "(<a", "(<a>", "(a 'b' "})
        EXPECT_EQ(target(text), "(none)") << text;
}

TEST(LinkDestinations, areCompleteBeforeTheLimit) {
    constexpr std::string_view text = "(a 'b' )";
    LinkDestinations destinations;
    destinations.reset(text);
    for (std::size_t limit = 1; limit < text.size(); ++limit)
        EXPECT_FALSE(destinations.parse(0, limit)) << limit;
    EXPECT_TRUE(destinations.parse(0, text.size()));
}

TEST(LinkDestinations, areViewsIntoTheText) {
    const std::string text = "(a 'b')";
    const auto found = parsed(text);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->url.data(), text.data() + 1);
    EXPECT_EQ(found->title.value_or("").data(), text.data() + 4);
}

TEST(LinkDestinations, mayNestWithoutLimit) {
    constexpr std::size_t depth = 200'000;
    const std::string parentheses = std::string(depth, '(') + std::string(depth, ')');
    EXPECT_TRUE(parsed("(" + parentheses + ")"));
    EXPECT_FALSE(parsed("(" + parentheses));
}

TEST(LinkDestinations, areFoundBehindOnesThatFailed) {
    constexpr std::string_view text = "(a b) (c(d)e) (f'g h) (<i>) (j";
    LinkDestinations destinations;
    destinations.reset(text);
    EXPECT_EQ(described(destinations.parse(0, text.size())), "(none)");
    EXPECT_EQ(described(destinations.parse(6, text.size())), "c(d)e");
    EXPECT_EQ(described(destinations.parse(14, text.size())), "(none)");
    EXPECT_EQ(described(destinations.parse(22, text.size())), "i");
    EXPECT_EQ(described(destinations.parse(28, text.size())), "(none)");
}

TEST(LinkDestinations, areReadAnewInAnotherText) {
    LinkDestinations destinations;
    destinations.reset("(<a> \"b\" 'c' (d) (");
    EXPECT_EQ(described(destinations.parse(0, 18)), "(none)");
    destinations.reset("(<aa> \"bb\")");
    EXPECT_EQ(described(destinations.parse(0, 11)), "aa|bb");
    destinations.reset("(a(b))");
    EXPECT_EQ(described(destinations.parse(0, 6)), "a(b)");
}

TEST(LinkDestinations, areTheSameWhateverWasAskedBefore) {
    constexpr std::array<std::string_view, 16> pieces{
        "](",  "](", "(", ")", ")", "\\", "<", ">", "\"", "'", " ", "\n", "a", "\u3000", "                    ",
        "\xFF"};
    LinkDestinations destinations;
    std::mt19937 random(1); // the same texts every time
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (std::size_t length = random() % 24; length > 0; --length)
            text += pieces.at(random() % pieces.size());
        destinations.reset(text);
        for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1)) {
            const std::size_t open = at + 1;
            const std::size_t limit = text.size() - random() % (text.size() - open);
            LinkDestinations fresh;
            fresh.reset(text);
            ASSERT_EQ(described(destinations.parse(open, limit)), described(fresh.parse(open, limit)))
                << testing::PrintToString(text) << " from " << open << " to " << limit;
        }
    }
}

} // namespace
} // namespace quillmar::Markdown
