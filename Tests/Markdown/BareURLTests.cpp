#include "Markdown/BareURL.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

/// The address that \p text begins with.
std::string_view url(std::string_view text) { return bareURL(text, 0); }

TEST(BareURL, isAPartOfTheText) {
    const std::string text = "a https://b c";
    const std::string_view found = bareURL(text, 2);
    EXPECT_EQ(found, "https://b");
    EXPECT_EQ(found.data(), text.data() + 2);
}

TEST(BareURL, hasOneOfThreeBeginnings) {
    EXPECT_EQ(url("https://a"), "https://a");
    EXPECT_EQ(url("http://a"), "http://a");
    EXPECT_EQ(url("www.a"), "www.a");
    EXPECT_EQ(url("hTTpS://A"), "hTTpS://A");
    EXPECT_EQ(url("WWW.A"), "WWW.A");
}

TEST(BareURL, isNoneAnywhereElse) {
    for (const std::string_view text :
         {"", "h", "w", "http", "http:/", "https:/a", "httpx://a", "ww.a", "www", "www-a", "ftp://a",
          "mailto:a@b.c", " https://a", "\u017F", "http\u017F://a"})
        EXPECT_EQ(url(text), "") << text;
    EXPECT_EQ(bareURL("https://a", 1), "");
    EXPECT_EQ(bareURL("https://a", 9), "");
}

TEST(BareURL, doesNotBeginBehindALetterADigitOrASlash) {
    for (const std::string_view before : {"a", "Z", "0", "/", "\u00E9", "\u4E2D", "\u0663"}) {
        const std::string text = std::string(before).append("https://a");
        EXPECT_EQ(bareURL(text, before.size()), "") << text;
    }
}

TEST(BareURL, mayBeginBehindAnyOtherCharacter) {
    for (const std::string_view before :
         {" ", "\n", "_", "(", "<", "\"", ".", "\\", "\u00BD", "\u0301", "\u2028", "\xFF"}) {
        const std::string text = std::string(before).append("https://a");
        EXPECT_EQ(bareURL(text, before.size()), "https://a") << text;
    }
}

TEST(BareURL, beginsATextWhateverStoodBeforeIt) {
    const std::string_view text = "ahttps://b";
    EXPECT_EQ(bareURL(text, 1), "");
    EXPECT_EQ(bareURL(text.substr(1), 0), "https://b"); // as that of a link does
}

TEST(BareURL, endsBeforeWhiteSpaceOfAnyKind) {
    for (const std::string_view space : {" ", "\n", "\t", "\v", "\f", "\u0085", "\u00A0", "\u2028", "\u3000"})
        EXPECT_EQ(url(std::string("www.a").append(space).append("b")).size(), 5U) << space;
}

TEST(BareURL, endsBeforeALessThanSign) { EXPECT_EQ(url("www.a<b>"), "www.a"); }

TEST(BareURL, holdsEverythingElse) {
    for (const std::string_view text : {"www.a>b", "www.a)b]c}d", "www.a\"b'c", "www.a*b_c~d", "www.a`b\\c|d&e",
                                        "www.\u00E9\u200B\u4E2D", "www.a\xFF\xC2", "https://http://a"})
        EXPECT_EQ(url(text), text);
}

TEST(BareURL, losesPunctuationAtItsEnd) {
    for (const char mark : std::string(".,:;!?*_~'\""))
        EXPECT_EQ(url(std::string("www.a") + mark), "www.a") << mark;
    EXPECT_EQ(url("https://a?b!...~~**\""), "https://a?b");
}

TEST(BareURL, keepsOtherCharactersAtItsEnd) {
    for (const std::string_view text :
         {"www.a)", "www.a/", "www.a\\", "www.a-", "www.a>", "www.a`", "www.a.)", "www.a\u2026"})
        EXPECT_EQ(url(text), text);
}

TEST(BareURL, mayLoseTheFullStopOfItsBeginning) {
    EXPECT_EQ(url("www."), "www");
    EXPECT_EQ(url("www...!"), "www");
    EXPECT_EQ(url("http://."), "http://");
}

TEST(AddressWithWWW, lacksAScheme) {
    EXPECT_TRUE(beginsWithWWW("www.a"));
    EXPECT_TRUE(beginsWithWWW("WwW.a"));
    EXPECT_TRUE(beginsWithWWW("www"));
    EXPECT_FALSE(beginsWithWWW("http://www.a"));
    EXPECT_FALSE(beginsWithWWW("https://"));
}

} // namespace
} // namespace quillmar::Markdown
