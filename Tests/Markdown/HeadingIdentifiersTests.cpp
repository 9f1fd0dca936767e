#include "Markdown/HeadingIdentifiers.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// The identifier of the only heading of a document.
std::string slug(std::string_view heading) { return HeadingIdentifiers().slug(heading); }

TEST(HeadingIdentifiers, areLowercaseWithHyphensForSpaces) {
    EXPECT_EQ(slug("How It Works"), "how-it-works");
    EXPECT_EQ(slug("Überraschung ΑΣ"), "überraschung-ας");
}

TEST(HeadingIdentifiers, keepLettersMarksAndNumbersOfAnyScript) {
    EXPECT_EQ(slug("データ २ Ⅷ ½ ก็"), "データ-२-ⅷ-½-ก็");
    EXPECT_EQ(slug("e\u0301"), "e\u0301");
}

TEST(HeadingIdentifiers, keepHyphensAndUnderscores) { EXPECT_EQ(slug("a-b_c -- d"), "a-b_c----d"); }

TEST(HeadingIdentifiers, dropEverythingElse) {
    EXPECT_EQ(slug("*What*\tis \"<b>\"? & [this](x)."), "whatis-b--thisx");
    EXPECT_EQ(slug("a\u00A0b\u3000c\u2028d\U0001F331e"), "abcde");
    EXPECT_EQ(slug(std::string_view("a\0b", 3)), "ab");
}

TEST(HeadingIdentifiers, areNeitherTrimmedNorCollapsed) { EXPECT_EQ(slug("  a  b "), "--a--b-"); }

TEST(HeadingIdentifiers, useTheFullLowerCaseMapping) {
    EXPECT_EQ(slug("\u0130"), "i\u0307"); // a capital I with a dot above has two characters
}

TEST(HeadingIdentifiers, dropBytesThatAreNotUTF8) {
    EXPECT_EQ(slug("a\xFF"
                   "b\xC3"),
              "ab");
    EXPECT_EQ(slug("\xED\xA0\x80x"), "x");
}

TEST(HeadingIdentifiers, areNumberedFromTheSecondOnOfATextOn) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(identifiers.slug("Notes"), "notes");
    EXPECT_EQ(identifiers.slug("notes!"), "notes-1");
    EXPECT_EQ(identifiers.slug("Others"), "others");
    EXPECT_EQ(identifiers.slug("NOTES"), "notes-2");
}

TEST(HeadingIdentifiers, canBeTheSameAsANumberedOne) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(identifiers.slug("a"), "a");
    EXPECT_EQ(identifiers.slug("a"), "a-1");
    EXPECT_EQ(identifiers.slug("a-1"), "a-1");
    EXPECT_EQ(identifiers.slug("a-1"), "a-1-1");
}

TEST(HeadingIdentifiers, areEmptyAndThenNumberedWithoutUsableCharacters) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(identifiers.slug("?!"), "");
    EXPECT_EQ(identifiers.slug(""), "-1");
    EXPECT_EQ(identifiers.slug("***"), "-2");
}

TEST(HeadingIdentifiers, countCanonicallyEquivalentTextsTogether) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(identifiers.slug("caf\u00E9"), "caf\u00E9");
    EXPECT_EQ(identifiers.slug("cafe\u0301"), "cafe\u0301-1");
}

TEST(HeadingIdentifiers, countVeryLongTextsByTheirBytes) {
    const std::string tail(1'100, 'x');
    HeadingIdentifiers identifiers;
    EXPECT_EQ(identifiers.slug("\u00E9" + tail), "\u00E9" + tail);
    EXPECT_EQ(identifiers.slug("e\u0301" + tail), "e\u0301" + tail);
    EXPECT_EQ(identifiers.slug("\u00E9" + tail), "\u00E9" + tail + "-1");
}

TEST(HeadingIdentifiers, startAfreshInEveryDocument) {
    HeadingIdentifiers first;
    first.slug("a");
    HeadingIdentifiers second;
    EXPECT_EQ(second.slug("a"), "a");
}

} // namespace
} // namespace quillmar
