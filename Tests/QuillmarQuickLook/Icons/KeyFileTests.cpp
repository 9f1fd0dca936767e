#include "QuillmarQuickLook/Icons/KeyFile.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

std::string valueOf(std::string text, std::string_view group, std::string_view key) {
    const KeyFile file(std::move(text));
    const auto value = file.value(group, key);
    return value ? std::string(*value) : "none";
}

TEST(KeyFile, hasTheValuesOfEachGroup) {
    const std::string text = "[One]\nkey=first\n[Two]\nkey=second\n";
    EXPECT_EQ(valueOf(text, "One", "key"), "first");
    EXPECT_EQ(valueOf(text, "Two", "key"), "second");
}

TEST(KeyFile, hasNoValueForAnotherGroupOrKey) {
    const std::string text = "[One]\nkey=value\n";
    EXPECT_EQ(valueOf(text, "one", "key"), "none");
    EXPECT_EQ(valueOf(text, "One", "Key"), "none");
    EXPECT_EQ(valueOf(text, "", "key"), "none");
}

TEST(KeyFile, countsWhatStandsBeforeAllGroupsToTheOneWithoutAName) {
    EXPECT_EQ(valueOf("key=value\n[One]\nkey=other\n", "", "key"), "value");
}

TEST(KeyFile, drawsWhiteSpaceFromAroundKeysAndValues) {
    EXPECT_EQ(valueOf("  [One]\t\n \tkey \t= \ta b \t\n", "One", "key"), "a b");
}

TEST(KeyFile, readsTheLineEndsOfOtherSystems) {
    EXPECT_EQ(valueOf("[One]\r\nkey=value\r\n", "One", "key"), "value");
}

TEST(KeyFile, needsNoEndOfTheLastLine) { EXPECT_EQ(valueOf("[One]\nkey=value", "One", "key"), "value"); }

TEST(KeyFile, passesOverComments) {
    EXPECT_EQ(valueOf("[One]\n#key=comment\n  # key=comment\nkey=value\n", "One", "key"), "value");
    EXPECT_EQ(valueOf("[One]\n#key=comment\n", "One", "#key"), "none");
}

TEST(KeyFile, passesOverWhatIsNeitherAGroupNorAValue) {
    EXPECT_EQ(valueOf("[One]\nkey\n[\n]\n[Open\nClosed]\n\nkey=value\n", "One", "key"), "value");
}

TEST(KeyFile, countsTheFirstOfTwoValues) {
    EXPECT_EQ(valueOf("[One]\nkey=first\nkey=second\n", "One", "key"), "first");
}

TEST(KeyFile, continuesAGroupThatComesTwice) {
    const std::string text = "[One]\na=1\n[Two]\nb=2\n[One]\na=3\nc=4\n";
    EXPECT_EQ(valueOf(text, "One", "a"), "1");
    EXPECT_EQ(valueOf(text, "One", "c"), "4");
}

TEST(KeyFile, cutsAtTheFirstEqualsSign) { EXPECT_EQ(valueOf("[One]\na=b=c\n", "One", "a"), "b=c"); }

TEST(KeyFile, hasEmptyValuesAndKeys) {
    EXPECT_EQ(valueOf("[One]\nkey=\n", "One", "key"), "");
    EXPECT_EQ(valueOf("[One]\n=value\n", "One", ""), "value");
    EXPECT_EQ(valueOf("[]\nkey=value\n", "", "key"), "value");
}

TEST(KeyFile, tellsTheKeysOfLanguagesApart) {
    const std::string text = "[One]\nIcon[de]=ordner\nIcon=folder\n";
    EXPECT_EQ(valueOf(text, "One", "Icon"), "folder");
    EXPECT_EQ(valueOf(text, "One", "Icon[de]"), "ordner");
}

TEST(KeyFile, leavesEscapesAsTheyStand) { EXPECT_EQ(valueOf("[One]\na=\\s\\n\n", "One", "a"), "\\s\\n"); }

TEST(KeyFile, keepsAnyBytes) {
    EXPECT_EQ(valueOf("[One]\na=\xFF\xFE\0\x01z\n"s, "One", "a"), "\xFF\xFE\0\x01z"s);
}

TEST(KeyFile, ofNothingHasNothing) { EXPECT_EQ(valueOf("", "", ""), "none"); }

} // namespace
} // namespace quillmar
