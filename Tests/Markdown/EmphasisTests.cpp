#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(Emphasis, ofOneCharacterIsEm) {
    expectParagraphs({{"*a*", "<em>a</em>"}, {"_a_", "<em>a</em>"}, {"a *b c* d", "a <em>b c</em> d"}});
}

TEST(Emphasis, ofTwoCharactersIsStrong) {
    expectParagraphs({{"**a**", "<strong>a</strong>"}, {"__a__", "<strong>a</strong>"}});
}

TEST(Emphasis, ofThreeCharactersIsStrongInsideEm) {
    expectParagraphs({{"***a***", "<em><strong>a</strong></em>"}, {"___a___", "<em><strong>a</strong></em>"}});
}

TEST(Emphasis, ofMoreCharactersIsMoreOfBoth) {
    expectParagraphs({{"****a****", "<strong><strong>a</strong></strong>"},
                      {"*****a*****", "<em><strong><strong>a</strong></strong></em>"}});
}

TEST(Emphasis, ofUnequalRunsLeavesTheRestOutside) {
    expectParagraphs({{"**a*", "*<em>a</em>"},
                      {"*a**", "<em>a</em>*"},
                      {"***a*", "**<em>a</em>"},
                      {"*a***", "<em>a</em>**"},
                      {"***a**", "*<strong>a</strong>"},
                      {"**a***", "<strong>a</strong>*"},
                      {"****a*", "***<em>a</em>"}});
}

TEST(Emphasis, nests) {
    expectParagraphs({{"**a *b* c**", "<strong>a <em>b</em> c</strong>"},
                      {"*a **b** c*", "<em>a <strong>b</strong> c</em>"},
                      {"*a _b_ c*", "<em>a <em>b</em> c</em>"},
                      {"**_~~a~~_**", "<strong><em><del>a</del></em></strong>"},
                      {"*(*a*)*", "<em>(<em>a</em>)</em>"},
                      {"*a *b* c*", "<em>a <em>b</em> c</em>"}});
}

TEST(Emphasis, nestedSharesARun) {
    expectParagraphs({{"***a* b**", "<strong><em>a</em> b</strong>"},
                      {"***a** b*", "<em><strong>a</strong> b</em>"},
                      {"*a **b***", "<em>a <strong>b</strong></em>"},
                      {"**a *b***", "<strong>a <em>b</em></strong>"}});
}

TEST(Emphasis, knowsNoRuleOfThree) {
    expectParagraphs({{"*a**b*", "<em>a</em><em>b</em>"},
                      {"**a*b**", "<em><em>a</em>b</em>*"},
                      {"**a *b**", "*<em>a <em>b</em></em>"},
                      {"*a **b* c**", "<em>a <em><em>b</em> c</em></em>"}});
}

TEST(Emphasis, openerTakesTheNearestCloser) {
    expectParagraphs(
        {{"*a* b*", "<em>a</em> b*"}, {"*a *b*", "*a <em>b</em>"}, {"**a **b**", "**a <strong>b</strong>"}});
}

TEST(Emphasis, withoutPartnerIsText) {
    expectParagraphs({{"*a", "*a"},
                      {"a*", "a*"},
                      {"**a", "**a"},
                      {"_a", "_a"},
                      {"a_ b_", "a_ b_"},
                      {"*a_", "*a_"},
                      {"a * b * c", "a * b * c"},
                      {"a ** b", "a ** b"},
                      {"x ****", "x ****"},
                      {"x ** **", "x ** **"},
                      {"~~a", "~~a"}});
}

TEST(Emphasis, unmatchedRunsInsideAPairAreText) {
    expectParagraphs({{"*a _b* c_", "<em>a _b</em> c_"},
                      {"~~a *b~~ c*", "<del>a *b</del> c*"},
                      {"*a ~~b*~~", "<em>a ~~b</em>~~"},
                      {"x *__* y", "x <em>__</em> y"}});
}

TEST(Emphasis, withWhiteSpaceInsideIsText) {
    expectParagraphs({{"x * a* *b *", "x * a* *b *"},
                      {"x *\u00A0a* y", "x *\u00A0a* y"},
                      {"x **\u2003a\u2003** y", "x **\u2003a\u2003** y"},
                      {"x *\u0085a\u0085*", "x *\u0085a\u0085*"},
                      {"x *\na*", "x *\na*"}});
}

TEST(Emphasis, maySpanLines) { expectParagraphs({{"*a\nb*", "<em>a\nb</em>"}, {"**a\n**", "**a\n**"}}); }

TEST(Emphasis, ofAsterisksMayStandInsideAWord) {
    expectParagraphs(
        {{"a*b*c", "a<em>b</em>c"}, {"a**b**c", "a<strong>b</strong>c"}, {"中*文*字", "中<em>文</em>字"}});
}

TEST(Emphasis, ofUnderscoresMayNotStandInsideAWord) {
    expectParagraphs({{"a_b_c", "a_b_c"},
                      {"_a_b", "_a_b"},
                      {"a__b__", "a__b__"},
                      {"_a_b_", "<em>a_b</em>"},
                      {"snake_case_name", "snake_case_name"},
                      {"при_ста_нь", "при_ста_нь"},
                      {"_(a)_b", "_(a)_b"},
                      {"1_2_3", "1_2_3"}});
}

TEST(Emphasis, ofUnderscoresMayStandNextToPunctuation) {
    expectParagraphs({{"(_a_)", "(<em>a</em>)"},
                      {"\"_a_\"", "&quot;<em>a</em>&quot;"},
                      {"a-_b_-c", "a-<em>b</em>-c"},
                      {"x -_-a-_-", "x -<em>-a-</em>-"}, // flanking on both sides
                      {"€_a_€", "€<em>a</em>€"}});
}

TEST(Emphasis, nextToPunctuationInsideAWordIsText) {
    expectParagraphs({{"a*\"b\"*", "a*&quot;b&quot;*"},
                      {"a*$b*", "a*$b*"},
                      {"a*🚀*b", "a*🚀*b"},
                      {"他*「文」*字", "他*「文」*字"},
                      {"*(a*", "<em>(a</em>"},
                      {"*a)*b", "*a)*b"}});
}

TEST(Emphasis, mayHoldSymbolsAndMarks) {
    expectParagraphs({{"*🚀*", "<em>🚀</em>"},
                      {"*\u0301a*", "<em>\u0301a</em>"},
                      {"a*\u0301b*", "a<em>\u0301b</em>"},
                      {"*e\u0301*", "<em>e\u0301</em>"},
                      {"*\u200Ba*", "<em>\u200Ba</em>"},
                      {"*ע*", "<em>ע</em>"}});
}

TEST(Emphasis, neighboursAreTheRawCharacters) {
    expectParagraphs({{"\\**a*", "*<em>a</em>"},
                      {"*a\\**", "<em>a*</em>"},
                      {"a*\\b*", "a*\\b*"},              // a backslash is punctuation
                      {"a*`b`*c", "a*<code>b</code>*c"}, // and so is a backtick
                      {"a*&amp;*", "a*&amp;amp;*"},
                      {"a*[b](c)*", "a*<a href=\"c\">b</a>*"}});
}

TEST(Emphasis, doesNotReachOutOfALink) {
    expectParagraphs({{"*[a*](b)", "*<a href=\"b\">a*</a>"},
                      {"[*a](b)*", "<a href=\"b\">*a</a>*"},
                      {"*[a](b)*", "<em><a href=\"b\">a</a></em>"},
                      {"[*a*](b*c*)", "<a href=\"b*c*\"><em>a</em></a>"}});
}

TEST(Emphasis, ofDifferentCharactersDoesNotMix) {
    expectParagraphs(
        {{"*a_", "*a_"}, {"**a__", "**a__"}, {"*_a*_", "<em>_a</em>_"}, {"_*a_*", "<em>*a</em>*"}});
}

TEST(Strikethrough, isTwoTildes) {
    expectParagraphs({{"~~a~~", "<del>a</del>"}, {"a ~~b *c*~~", "a <del>b <em>c</em></del>"}});
}

TEST(Strikethrough, isNoOtherNumberOfTildes) {
    expectParagraphs({{"~a~", "~a~"},
                      {"x ~~~a~~~", "x ~~~a~~~"},
                      {"x ~~~~a~~~~", "x ~~~~a~~~~"},
                      {"~~a~", "~~a~"},
                      {"~~a~~~", "~~a~~~"},
                      {"~~a ~b~ c~~", "<del>a ~b~ c</del>"}});
}

TEST(Strikethrough, opensAndClosesAsAsterisksDo) {
    expectParagraphs({{"a~~b~~c", "a<del>b</del>c"},
                      {"~~ a ~~", "~~ a ~~"},
                      {"~~a~~b~~", "<del>a</del>b~~"},
                      {"a~~\"b\"~~", "a~~&quot;b&quot;~~"},
                      {"~~a ~~b~~ c~~", "<del>a <del>b</del> c</del>"}});
}

} // namespace
} // namespace quillmar
