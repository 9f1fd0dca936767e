#include "Markdown/AngleBrackets.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillmar::Markdown {
namespace {

std::optional<AngleBracket> bracket(std::string_view text) {
    AngleBrackets brackets;
    brackets.reset(text);
    return brackets.angleBracket(0, text.size());
}

/// The kind and the content of what \p text begins with, and what follows it; "(none)" when that is text.
std::string described(const std::optional<AngleBracket>& found, std::string_view text) {
    if (!found) return "(none)";
    constexpr std::array<std::string_view, 4> kinds{"address", "mail", "comment", "tag"};
    std::string description(kinds.at(static_cast<std::size_t>(found->kind)));
    description.append(" ").append(found->content);
    if (found->end < text.size()) description.append(", ").append(text.substr(found->end));
    return description;
}

std::string described(std::string_view text) { return described(bracket(text), text); }

TEST(AngleBrackets, holdAnAddress) {
    EXPECT_EQ(described("<http://a.b/?c&d=<e> f"), "address http://a.b/?c&d=<e,  f");
    EXPECT_EQ(described("<tel:>"), "address tel:");
    EXPECT_EQ(described("<aa:\xFF>"), "address aa:\xFF");
}

TEST(AngleBrackets, schemeHasTwoToThirtyTwoCharacters) {
    const std::string longest(32, 'a');
    EXPECT_EQ(described("<" + longest + ":b>"), "address " + longest + ":b");
    EXPECT_EQ(described("<a" + longest + ":b>"), "(none)");
    EXPECT_EQ(described("<ab:>"), "address ab:");
    EXPECT_EQ(described("<a:b>"), "(none)");
    EXPECT_EQ(described("<:b>"), "(none)");
}

TEST(AngleBrackets, schemeHasLettersDigitsAndThreeMarks) {
    EXPECT_EQ(described("<a+b.c-1:d>"), "address a+b.c-1:d");
    EXPECT_EQ(described("<\u00E9\u4E2D\u0663:a>"), "address \u00E9\u4E2D\u0663:a"); // of every script
    for (const std::string_view text :
         {"<1a:b>", "<+a:b>", "<a_b:c>", "<a\u0301:b>", "<a\u00BD:b>", "<a\xFF:b>", "<ab\uFF1Ac>"})
        EXPECT_EQ(described(text), "(none)") << text;
}

TEST(AngleBrackets, holdAMailAddress) {
    EXPECT_EQ(described("<a@b.c> d"), "mail a@b.c,  d");
    EXPECT_EQ(described("<@.>"), "mail @.");
    EXPECT_EQ(described("<.@>"), "mail .@");
    EXPECT_EQ(described("<x:a@b.c>"), "mail x:a@b.c"); // the scheme is too short
    for (const std::string_view text : {"<a@b>", "<a.b>", "</a@b.c>", "<a@b>.", "<a.b>@"})
        EXPECT_NE(described(text).substr(0, 4), "mail") << text;
}

TEST(AngleBrackets, holdNoAddressWithWhiteSpace) {
    for (const std::string_view space : {" ", "\n", "\t", "\v", "\u0085", "\u00A0", "\u2028", "\u3000"}) {
        EXPECT_EQ(described(std::string("<aa:b").append(space).append(">")), "(none)") << space;
        EXPECT_EQ(described(std::string("<a@b.c").append(space).append(">")), "(none)") << space;
    }
    EXPECT_EQ(described("<aa:\u200Bb> c"), "address aa:\u200Bb,  c");
}

TEST(AngleBrackets, holdATag) {
    EXPECT_EQ(described("<b c=\"d\">e"), "tag <b c=\"d\">, e");
    EXPECT_EQ(described("</b>"), "tag </b>");
    EXPECT_EQ(described("<a href=\"https://b.c/@d\">"), "tag <a href=\"https://b.c/@d\">");
    EXPECT_EQ(described("<b c=\"d>e\">"), "(none)"); // the first ">" ends it
}

TEST(AngleBrackets, beginAComment) {
    EXPECT_EQ(described("<!-- a --> b"), "comment ,  b");
    EXPECT_EQ(described("<!---->"), "comment ");
    EXPECT_EQ(described("<!-- > - -- --->a"), "comment , a");
    EXPECT_EQ(described("<!--> a -->"), "comment ");
    EXPECT_EQ(described("<!--\n-->"), "comment ");
}

TEST(AngleBrackets, beginACommentOrNothing) {
    for (const std::string_view text : {"<!--", "<!-->", "<!--->", "<!--a@b.c>", "<!-- -- >"})
        EXPECT_EQ(described(text), "(none)") << text;
}

TEST(AngleBrackets, areTextOtherwise) {
    for (const std::string_view text :
         {"<", "<>", "< >", "<<", "<b", "<aa:b", "<a@b.c", "<!->", "<!a>", "<?a?>", "<1>"})
        EXPECT_EQ(described(text), "(none)") << text;
}

TEST(AngleBrackets, endBeforeTheLimit) {
    for (const std::string_view text : {"<aa:b>", "<a@b.c>", "<b c>", "<!---->"}) {
        AngleBrackets brackets;
        brackets.reset(text);
        for (std::size_t limit = 1; limit < text.size(); ++limit)
            EXPECT_FALSE(brackets.angleBracket(0, limit)) << text << " to " << limit;
        EXPECT_TRUE(brackets.angleBracket(0, text.size())) << text;
    }
}

TEST(AngleBrackets, areReadAnewInAnotherText) {
    AngleBrackets brackets;
    for (const std::string_view text :
         {"<aaaaaa", "<aa:b>", "<!-- a", "<!---->", "<a @.", "<a@b.c>", "<a@bcd>", "<b>"}) {
        brackets.reset(text);
        EXPECT_EQ(described(brackets.angleBracket(0, text.size()), text), described(text));
    }
}

TEST(AngleBrackets, areTheSameWhateverWasAskedBefore) {
    constexpr std::array<std::string_view, 16> pieces{"<",  "<", "<", ">", "<!--", "-->", "@", ".",
                                                      "aa", "b", ":", " ", "/",    "=\"", "-", "\u00A0"};
    AngleBrackets brackets;
    std::mt19937 random(1); // the same texts every time
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (std::size_t length = random() % 20; length > 0; --length)
            text += pieces.at(random() % pieces.size());
        brackets.reset(text);
        for (std::size_t at = text.find('<'); at != std::string::npos;
             at = text.find('<', at + 1 + random() % 3)) {
            const std::size_t limit = text.size() - random() % (text.size() - at);
            AngleBrackets fresh;
            fresh.reset(text);
            ASSERT_EQ(described(brackets.angleBracket(at, limit), text),
                      described(fresh.angleBracket(at, limit), text))
                << text << " from " << at << " to " << limit;
        }
    }
}

} // namespace
} // namespace quillmar::Markdown
