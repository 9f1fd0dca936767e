#include "Markdown/Emphasis.h"

#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

/// Builds HTML with runs in it, as the scan of a text does.
class EmphasisMatching : public testing::Test {
protected:
    void text(std::string_view text) { html_ += text; }

    /// A run that opens, one that closes, one that does both, and one that does neither.
    void opener(std::string_view run) { add(run, true, false); }
    void closer(std::string_view run) { add(run, false, true); }
    void both(std::string_view run) { add(run, true, true); }
    void neither(std::string_view run) { add(run, false, false); }

    std::string inserted() {
        emphasis_.insert(html_);
        return html_;
    }

    std::string html_;
    Emphasis emphasis_;

private:
    void add(std::string_view run, bool canOpen, bool canClose) {
        emphasis_.add({.character = run.front(), .count = run.size(), .canOpen = canOpen, .canClose = canClose},
                      html_.size());
    }
};

TEST_F(EmphasisMatching, withoutRunsLeavesTheTextAsItIs) {
    text("a");
    EXPECT_EQ(inserted(), "a");
}

TEST_F(EmphasisMatching, putsTagsWhereTheRunsStand) {
    text("a");
    opener("*");
    text("b");
    closer("*");
    text("c");
    EXPECT_EQ(inserted(), "a<em>b</em>c");
}

TEST_F(EmphasisMatching, leavesWhatStandsBeforeTheText) {
    text("<p>* ");
    opener("**");
    text("a");
    closer("**");
    EXPECT_EQ(inserted(), "<p>* <strong>a</strong>");
}

TEST_F(EmphasisMatching, putsEveryRunInItsPlace) {
    opener("_");
    text("a ");
    neither("*");
    text(" b");
    closer("_");
    opener("~~");
    text("c");
    closer("~~");
    neither("***");
    EXPECT_EQ(inserted(), "<em>a * b</em><del>c</del>***");
}

TEST_F(EmphasisMatching, movesLongTextsWhole) {
    const std::string longText = repeated("0123456789", 10'000);
    opener("*");
    text(longText);
    closer("*");
    text(longText);
    EXPECT_TRUE(sameText(inserted(), "<em>" + longText + "</em>" + longText));
}

TEST_F(EmphasisMatching, leavesRunsWithoutPartnerAsText) {
    opener("**");
    text("a");
    opener("_");
    text("b");
    closer("~~");
    EXPECT_EQ(inserted(), "**a_b~~");
}

TEST_F(EmphasisMatching, needsOneThatOpensBeforeOneThatCloses) {
    closer("*");
    text("a");
    neither("*");
    text("b");
    opener("*");
    EXPECT_EQ(inserted(), "*a*b*");
}

TEST_F(EmphasisMatching, nestsTheTagsOfLongRuns) {
    opener("*****");
    text("a");
    closer("*****");
    EXPECT_EQ(inserted(), "<em><strong><strong>a</strong></strong></em>");
}

TEST_F(EmphasisMatching, leavesTheRestOfARunOutside) {
    opener("****");
    text("a");
    closer("*");
    text("b");
    closer("**");
    EXPECT_EQ(inserted(), "*<strong><em>a</em>b</strong>");
}

TEST_F(EmphasisMatching, letsOneRunCloseSeveral) {
    opener("**");
    text("a");
    opener("*");
    text("b");
    opener("*");
    text("c");
    closer("*****");
    EXPECT_EQ(inserted(), "<strong>a<em>b<em>c</em></em></strong>*");
}

TEST_F(EmphasisMatching, letsTheRestOfACloserOpen) {
    opener("*");
    text("a");
    both("***");
    text("b");
    closer("**");
    EXPECT_EQ(inserted(), "<em>a</em><strong>b</strong>");
}

TEST_F(EmphasisMatching, letsACloserWithoutRestOpenNothing) {
    opener("*");
    text("a");
    both("*");
    text("b");
    closer("*");
    EXPECT_EQ(inserted(), "<em>a</em>b*");
}

TEST_F(EmphasisMatching, letsNoRunOpenAndCloseItself) {
    both("**");
    text("a");
    EXPECT_EQ(inserted(), "**a");
}

TEST_F(EmphasisMatching, takesRunsBetweenAPairForText) {
    opener("*");
    text("a");
    opener("__");
    text("b");
    closer("*");
    text("c");
    closer("__");
    EXPECT_EQ(inserted(), "<em>a__b</em>c__");
}

TEST_F(EmphasisMatching, keepsRunsOpenWhenACloserHasNoPartner) {
    opener("*");
    text("a");
    closer("_");
    text("b");
    closer("*");
    EXPECT_EQ(inserted(), "<em>a_b</em>");
}

TEST_F(EmphasisMatching, endsWithALinksText) {
    text("<a>");
    emphasis_.beginLinkText();
    opener("*");
    text("a");
    emphasis_.endLinkText();
    text("</a>");
    closer("*");
    EXPECT_EQ(inserted(), "<a>*a</a>*");
}

TEST_F(EmphasisMatching, passesWhatALinksTextLeftOpen) {
    opener("_");
    opener("*");
    emphasis_.beginLinkText();
    opener("*");
    opener("_");
    text("a");
    emphasis_.endLinkText();
    closer("*");
    closer("_");
    EXPECT_EQ(inserted(), "<em><em>*_a</em></em>");
}

TEST_F(EmphasisMatching, waitsUntilTheEndOfALinksText) {
    opener("*");
    text("<a>");
    emphasis_.beginLinkText();
    text("a");
    closer("*");
    emphasis_.endLinkText();
    text("</a>");
    closer("*");
    EXPECT_EQ(inserted(), "<em><a>a*</a></em>");
}

TEST_F(EmphasisMatching, ofALinksTextLeavesThatAroundItOpen) {
    opener("_");
    opener("*");
    emphasis_.beginLinkText();
    opener("_");
    opener("*"); // dropped by what closes the one before
    text("a");
    closer("_");
    emphasis_.endLinkText();
    closer("*");
    closer("_");
    EXPECT_EQ(inserted(), "<em><em><em>*a</em></em></em>");
}

TEST_F(EmphasisMatching, isSeparateInLinksInLinks) {
    opener("*");
    emphasis_.beginLinkText();
    opener("**");
    emphasis_.beginLinkText();
    opener("~~");
    text("a");
    closer("**");
    closer("~~");
    emphasis_.endLinkText();
    closer("**");
    emphasis_.endLinkText();
    closer("*");
    EXPECT_EQ(inserted(), "<em><strong><del>a**</del></strong></em>");
}

TEST_F(EmphasisMatching, beginsAnewWithAnotherText) {
    opener("*");
    emphasis_.beginLinkText();
    opener("_");
    emphasis_.clear();
    html_ = "b";
    closer("_");
    closer("*");
    EXPECT_EQ(inserted(), "b_*");
}

} // namespace
} // namespace quillmar::Markdown
