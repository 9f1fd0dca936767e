#include "Markdown/HeadingIdentifiers.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// The identifier of the only heading of a document.
std::string slug(HeadingIdentifiers& identifiers, std::string_view heading) {
    std::string html = "<h1 id=\"";
    const std::size_t start = html.size();
    identifiers.appendSlug(html, heading);
    return html.substr(start);
}

std::string slug(std::string_view heading) {
    HeadingIdentifiers identifiers;
    return slug(identifiers, heading);
}

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
    EXPECT_EQ(slug(identifiers, "Notes"), "notes");
    EXPECT_EQ(slug(identifiers, "notes!"), "notes-1");
    EXPECT_EQ(slug(identifiers, "Others"), "others");
    EXPECT_EQ(slug(identifiers, "NOTES"), "notes-2");
}

TEST(HeadingIdentifiers, canBeTheSameAsANumberedOne) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(slug(identifiers, "a"), "a");
    EXPECT_EQ(slug(identifiers, "a"), "a-1");
    EXPECT_EQ(slug(identifiers, "a-1"), "a-1");
    EXPECT_EQ(slug(identifiers, "a-1"), "a-1-1");
}

TEST(HeadingIdentifiers, areEmptyAndThenNumberedWithoutUsableCharacters) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(slug(identifiers, "?!"), "");
    EXPECT_EQ(slug(identifiers, ""), "-1");
    EXPECT_EQ(slug(identifiers, "***"), "-2");
}

TEST(HeadingIdentifiers, countCanonicallyEquivalentTextsTogether) {
    HeadingIdentifiers identifiers;
    EXPECT_EQ(slug(identifiers, "caf\u00E9"), "caf\u00E9");
    EXPECT_EQ(slug(identifiers, "cafe\u0301"), "cafe\u0301-1");
}

TEST(HeadingIdentifiers, countVeryLongTextsByTheirBytes) {
    const std::string tail(1'100, 'x');
    HeadingIdentifiers identifiers;
    EXPECT_EQ(slug(identifiers, "\u00E9" + tail), "\u00E9" + tail);
    EXPECT_EQ(slug(identifiers, "e\u0301" + tail), "e\u0301" + tail);
    EXPECT_EQ(slug(identifiers, "\u00E9" + tail), "\u00E9" + tail + "-1");
}

TEST(HeadingIdentifiers, startAfreshInEveryDocument) {
    HeadingIdentifiers first;
    slug(first, "a");
    HeadingIdentifiers second;
    EXPECT_EQ(slug(second, "a"), "a");
}

} // namespace
} // namespace quillmar
