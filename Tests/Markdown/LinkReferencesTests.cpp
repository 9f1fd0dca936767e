#include "Markdown/LinkReferences.h"

#include "Markdown/MarkdownLimits.h"
#include "Tests/Helpers/RegularExpression.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <vector>

namespace quillmar {
namespace {

/// What is left of a definition without its references.
struct Definition {
    std::string url;
    std::optional<std::string> title;
    bool operator==(const Definition&) const = default;
};

std::optional<Definition> found(LinkReferences& references, std::string_view label) {
    const LinkReferences::Definition* definition = references.resolve(label);
    if (definition == nullptr) return std::nullopt;
    return Definition{std::string(definition->url), std::optional<std::string>(definition->title)};
}

/// What \p line defines as \p label.
std::optional<Definition> defined(std::string_view line, std::string_view label) {
    LinkReferences references;
    if (!references.collect(line)) return std::nullopt;
    return found(references, label);
}

bool isDefinition(std::string_view line) { return LinkReferences().collect(line); }

/// The lines that are no definitions.
std::vector<std::string_view> kept(LinkReferences& references, const std::vector<std::string_view>& lines) {
    std::vector<std::string_view> result;
    for (const std::string_view line : lines)
        if (!references.collect(line)) result.push_back(line);
    return result;
}

TEST(LinkDefinition, hasLabelAndDestination) {
    EXPECT_EQ(defined("[pear]: https://example.org/pear", "pear"),
              (Definition{"https://example.org/pear", {}}));
    EXPECT_EQ(defined("[pear]:x", "pear"), (Definition{"x", {}}));
    EXPECT_EQ(defined("[pear]: \t x \t ", "pear"), (Definition{"x", {}}));
}

TEST(LinkDefinition, mayHaveATitle) {
    EXPECT_EQ(defined("[a]: x \"A title\"", "a"), (Definition{"x", "A title"}));
    EXPECT_EQ(defined("[a]: x 'A title'  ", "a"), (Definition{"x", "A title"}));
    EXPECT_EQ(defined("[a]: x\t (A title)", "a"), (Definition{"x", "A title"}));
    EXPECT_EQ(defined("[a]: x \"\"", "a"), (Definition{"x", ""}));
}

TEST(LinkDefinition, mayMixTheMarksAroundATitle) {
    EXPECT_EQ(defined("[a]: x \"b)", "a"), (Definition{"x", "b"}));
    EXPECT_EQ(defined("[a]: x (b \"c\" d'", "a"), (Definition{"x", "b \"c\" d"}));
}

TEST(LinkDefinition, hasItsTitleBehindWhiteSpace) {
    EXPECT_EQ(defined("[a]: x\"b\"", "a"), (Definition{"x\"b\"", {}}));
    EXPECT_EQ(defined("[a]: \"b\"", "a"), (Definition{"\"b\"", {}}));
}

TEST(LinkDefinition, hasNothingElseInItsLine) {
    EXPECT_FALSE(isDefinition("[a]: x y"));
    EXPECT_FALSE(isDefinition("[a]: x \"b\" c"));
    EXPECT_FALSE(isDefinition("[a]: x \""));
    EXPECT_FALSE(isDefinition("[a]: x )b\""));
    EXPECT_FALSE(isDefinition("[a]: x \"b("));
    EXPECT_FALSE(isDefinition("text [a]: x"));
}

TEST(LinkDefinition, needsALabelAColonAndADestination) {
    EXPECT_FALSE(isDefinition("[]: x"));
    EXPECT_FALSE(isDefinition("[a] : x"));
    EXPECT_FALSE(isDefinition("[a](x)"));
    EXPECT_FALSE(isDefinition("[a]:"));
    EXPECT_FALSE(isDefinition("[a]: \t\u00A0 "));
    EXPECT_FALSE(isDefinition("[a: x"));
    EXPECT_FALSE(isDefinition("[[a]]: x"));
    EXPECT_FALSE(isDefinition("a]: x"));
    EXPECT_FALSE(isDefinition("["));
    EXPECT_FALSE(isDefinition(""));
}

TEST(LinkDefinition, mayHaveAnOpeningBracketInItsLabel) {
    EXPECT_EQ(defined("[a[b]: x", "a[b"), (Definition{"x", {}}));
}

TEST(LinkDefinition, isIndentedByAtMostThreeSpaces) {
    EXPECT_TRUE(isDefinition("   [a]: x"));
    EXPECT_FALSE(isDefinition("    [a]: x"));
    EXPECT_FALSE(isDefinition("\u00A0[a]: x"));
    EXPECT_FALSE(isDefinition("\t[a]: x"));
}

TEST(LinkDefinition, losesAngleBracketsAroundItsDestination) {
    EXPECT_EQ(defined("[a]: <x/y>", "a"), (Definition{"x/y", {}}));
    EXPECT_EQ(defined("[a]: <> \"b\"", "a"), (Definition{"", "b"}));
    EXPECT_EQ(defined("[a]: <x", "a"), (Definition{"<x", {}}));
    EXPECT_EQ(defined("[a]: <", "a"), (Definition{"<", {}}));
    EXPECT_EQ(defined("[a]: x>", "a"), (Definition{"x>", {}}));
    EXPECT_FALSE(isDefinition("[a]: <x y>"));
}

TEST(LinkDefinition, isSeparatedByAnyWhiteSpace) {
    EXPECT_EQ(defined("[a]:\u00A0\u2028x\u3000\"b\"\u0085", "a"), (Definition{"x", "b"}));
}

TEST(LinkDefinition, hasATitleWithoutLineTerminators) {
    EXPECT_FALSE(isDefinition("[a]: x \"b\u2028c\""));
    EXPECT_FALSE(isDefinition("[a]: x \"b\vc\""));
    EXPECT_TRUE(isDefinition("[a]: x \"b\u00A0c\""));
}

TEST(LinkDefinition, keepsBytesThatAreNotUTF8) {
    EXPECT_EQ(defined("[a]: \xFF\xC2 \"\xED\xA0\x80\"", "a"), (Definition{"\xFF\xC2", "\xED\xA0\x80"}));
    EXPECT_TRUE(isDefinition("[\xE2\x80]: x"));
}

TEST(LinkDefinition, isWhatTheRegularExpressionMatches) {
    const RegularExpression pattern(R"re(^ {0,3}\[([^\]]+)\]:\s*(\S+)(?:\s+["'(](.*)["')])?\s*$)re");
    const std::vector<std::string_view> pieces = {
        " ",  " ",      "[",      "]",      "]:", "\"", "'", "(",  ")",  "a",  "B",      "^",      ":",
        "\t", "\u00A0", "\u2028", "\u0085", "\v", "\f", "<", "\r", "\"", "(b", "\u00C9", "\u200B", "x y"};
    std::mt19937 random(1); // the same lines every time
    int definitions = 0;
    for (int round = 0; round < 10'000; ++round) {
        std::string line = random() % 4 == 0 ? "" : "[a]: x";
        for (std::size_t length = random() % 9; length > 0; --length) line += pieces[random() % pieces.size()];

        const auto match = pattern.firstMatch(line);
        const bool isMatch = match && match->end == line.size();
        const bool isFootnote = isMatch && Markdown::normalizeLabel(match->text(1)).starts_with('^');
        LinkReferences references;
        ASSERT_EQ(references.collect(line), isMatch && !isFootnote) << testing::PrintToString(line);
        if (!isMatch || isFootnote) continue;

        ++definitions;
        const auto definition = found(references, match->text(1));
        ASSERT_TRUE(definition) << testing::PrintToString(line);
        const std::string url = match->text(2);
        const bool isInAngleBrackets = url.starts_with('<') && url.ends_with('>');
        ASSERT_EQ(definition->url, isInAngleBrackets ? url.substr(1, url.size() - 2) : url);
        ASSERT_EQ(definition->title, match->groups.at(3)) << testing::PrintToString(line);
    }
    EXPECT_GT(definitions, 1'000);
}

TEST(LinkReferences, keepTheFirstDefinitionOfALabel) {
    LinkReferences references;
    EXPECT_TRUE(references.collect("[Pear]: first"));
    EXPECT_TRUE(references.collect("[pEAR]: second \"title\""));
    EXPECT_EQ(found(references, "PEAR"), (Definition{"first", {}}));
}

TEST(LinkReferences, doNotHoldWhatIsNotDefined) {
    LinkReferences references;
    EXPECT_EQ(references.resolve("a"), nullptr);
    references.collect("[a]: x");
    EXPECT_EQ(references.resolve("b"), nullptr);
    EXPECT_EQ(references.resolve(""), nullptr);
    EXPECT_EQ(references.resolve("a]"), nullptr);
}

TEST(LinkReferences, mayHaveALabelOfWhiteSpace) {
    LinkReferences references;
    EXPECT_TRUE(references.collect("[ ]: x"));
    EXPECT_EQ(found(references, ""), (Definition{"x", {}}));
    EXPECT_EQ(found(references, "\t\n"), (Definition{"x", {}}));
}

TEST(LinkReferences, leaveFootnotesInTheText) {
    LinkReferences references;
    EXPECT_FALSE(references.collect("[^1]: A note"));
    EXPECT_FALSE(references.collect("[^1]: note"));
    EXPECT_FALSE(references.collect("[ ^1]: note"));
    EXPECT_TRUE(references.collect("[1^]: note"));
    EXPECT_EQ(references.resolve("^1"), nullptr);
}

TEST(LinkReferences, areNotCollectedInsideFences) {
    LinkReferences references;
    EXPECT_EQ(kept(references, {"```c", "[a]: x", "```", "[b]: y"}),
              (std::vector<std::string_view>{"```c", "[a]: x", "```"}));
    EXPECT_EQ(references.resolve("a"), nullptr);
    EXPECT_NE(references.resolve("b"), nullptr);
}

TEST(LinkReferences, areNotCollectedBehindAFenceThatStaysOpen) {
    LinkReferences references;
    const std::vector<std::string_view> lines = {"~~~~",     "[a]: x", "~~~",   "```",
                                                 "    ~~~~", "~~~~ x", "[b]: y"};
    EXPECT_EQ(kept(references, lines), lines);
    EXPECT_EQ(references.resolve("b"), nullptr);
}

TEST(LinkReferences, areCollectedBehindALongerClosingRun) {
    LinkReferences references;
    kept(references, {"   ```", "[a]: x", " \u00A0````\t", "[b]: y"});
    EXPECT_EQ(references.resolve("a"), nullptr);
    EXPECT_NE(references.resolve("b"), nullptr);
}

TEST(LinkReferences, areCollectedBehindWhatIsNoFence) {
    for (const std::string_view line : {"``", "    ```", "``` `", "x ```", "> ```"}) {
        LinkReferences references;
        EXPECT_EQ(kept(references, {line, "[a]: x"}), (std::vector<std::string_view>{line}));
        EXPECT_NE(references.resolve("a"), nullptr) << line;
    }
}

TEST(LinkReferences, closeAFenceAfterItsOpeningLineIsGone) {
    LinkReferences references;
    auto opening = std::make_unique<std::string>("```language");
    references.collect(*opening);
    opening.reset();
    EXPECT_FALSE(references.collect("```"));
    EXPECT_TRUE(references.collect("[a]: x"));
}

TEST(LinkReferences, stayWhereTheyAre) {
    LinkReferences references;
    references.collect("[a]: x");
    const LinkReferences::Definition* first = references.resolve("a");
    for (int i = 0; i < 1'000; ++i)
        references.collect(std::string("[").append(std::to_string(i)).append("]: y"));
    EXPECT_EQ(references.resolve("a"), first);
    EXPECT_EQ(found(references, "a"), (Definition{"x", {}}));
}

TEST(LinkReferences, areFoundUntilTheirTextFillsTheDocument) {
    const std::size_t quarter = MarkdownLimits::maxResolvedReferenceBytes / 4;
    LinkReferences references;
    references.collect(std::string("[a]: x \"").append(quarter - 1, 'y').append("\""));
    for (int i = 0; i < 4; ++i) EXPECT_NE(references.resolve("a"), nullptr);
    EXPECT_EQ(references.resolve("a"), nullptr);
}

TEST(LinkReferences, areFoundWhereALongerOneIsNot) {
    LinkReferences references;
    references.collect(std::string("[long]: ").append(MarkdownLimits::maxResolvedReferenceBytes - 1, 'x'));
    references.collect("[short]: y");
    EXPECT_NE(references.resolve("long"), nullptr);
    EXPECT_EQ(references.resolve("long"), nullptr);
    EXPECT_NE(references.resolve("short"), nullptr);
    EXPECT_EQ(references.resolve("short"), nullptr);
}

TEST(LinkReferences, areNotCountedWhenTheyAreNotFound) {
    LinkReferences references;
    references.collect(std::string("[a]: ").append(MarkdownLimits::maxResolvedReferenceBytes, 'x'));
    references.collect(std::string("[b]: ").append(MarkdownLimits::maxResolvedReferenceBytes + 1, 'x'));
    EXPECT_EQ(references.resolve("b"), nullptr);
    EXPECT_EQ(references.resolve("c"), nullptr);
    EXPECT_NE(references.resolve("a"), nullptr);
}

TEST(LinkLabel, isComparedWithoutCase) {
    using Markdown::normalizeLabel;
    EXPECT_EQ(normalizeLabel("PeAr"), "pear");
    EXPECT_EQ(normalizeLabel("ÄΣB ΑΣ"), "äσb ας");
    EXPECT_EQ(normalizeLabel("\u212A"), "k"); // the Kelvin sign
}

TEST(LinkLabel, isComparedWithOneSpaceForWhiteSpace) {
    using Markdown::normalizeLabel;
    EXPECT_EQ(normalizeLabel(" \t a \n\n b\u00A0\u3000c\u2028 "), "a b c");
    EXPECT_EQ(normalizeLabel("a\u200Bb"), "a\u200Bb");
    EXPECT_EQ(normalizeLabel(" \u0085\v\f\r"), "");
}

TEST(LinkLabel, isComparedByCanonicalEquivalence) {
    LinkReferences references;
    references.collect("[cafe\u0301]: x");
    EXPECT_NE(references.resolve("CAF\u00C9"), nullptr);
    EXPECT_EQ(references.resolve("cafe"), nullptr);
}

TEST(LinkLabel, isComparedByItsBytesWhenVeryLong) {
    const std::string tail(1'100, 'x');
    LinkReferences references;
    references.collect(std::string("[cafe\u0301").append(tail).append("]: x"));
    EXPECT_EQ(references.resolve("caf\u00E9" + tail), nullptr);
    EXPECT_NE(references.resolve("CAFE\u0301 " + tail), references.resolve("CAFE\u0301" + tail));
    EXPECT_NE(references.resolve("cafe\u0301" + tail), nullptr);
}

TEST(LinkLabel, mayHoldBytesThatAreNotUTF8) {
    LinkReferences references;
    references.collect("[\xFF\xE2\x80]: x");
    EXPECT_NE(references.resolve("\xFF\xE2\x80"), nullptr);
    EXPECT_EQ(references.resolve("\xE2\x80"), nullptr);
}

} // namespace
} // namespace quillmar
