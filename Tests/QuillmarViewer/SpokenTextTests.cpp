#include "QuillmarViewer/SpokenText.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string spoken(const std::string& body) {
    return spokenText("<!DOCTYPE html><html><head><title>no</title><style>p{}</style></head><body>" + body +
                      "</body></html>");
}

TEST(SpokenText, isTheTextOfTheBody) { EXPECT_EQ(spoken("<h1>Herbs</h1><p>lovage</p>"), "Herbs lovage"); }

TEST(SpokenText, isOneLine) { EXPECT_EQ(spoken("  one\n\n\ttwo \r\n "), "one two"); }

TEST(SpokenText, hasTheCharactersThatPagesEscape) {
    EXPECT_EQ(spoken("&lt;a&gt; &amp;lt; &quot;b&quot; it&#39;s"), "<a> &lt; \"b\" it's");
}

TEST(SpokenText, keepsOtherReferencesAsTheyStand) { EXPECT_EQ(spoken("&nbsp;&"), "&nbsp;&"); }

TEST(SpokenText, leavesOutTheAddressesOfPictures) {
    EXPECT_EQ(spoken("a<img src=\"data:image/png;base64,AAAA\">b"), "a b");
}

TEST(SpokenText, endsAtATagThatIsNotClosed) { EXPECT_EQ(spokenText("<body>word <img src="), "word"); }

TEST(SpokenText, isEmptyWithoutABody) {
    EXPECT_EQ(spokenText(""), "");
    EXPECT_EQ(spokenText("<p>word"), "");
}

TEST(SpokenText, endsAtItsLimit) {
    EXPECT_EQ(spoken(std::string(2 * maxSpokenBytes, 'a')), std::string(maxSpokenBytes, 'a'));
}

TEST(SpokenText, isWellFormedWhereItIsCut) {
    std::string letters(maxSpokenBytes - 1, 'a');
    for (int i = 0; i < 10; ++i) letters += "\u00e9";
    EXPECT_EQ(spoken(letters).substr(maxSpokenBytes - 1), "\uFFFD");
}

TEST(SpokenText, isNotLookedForBehindAnEndlessRunOfTags) {
    std::string tags;
    for (int i = 0; i < 100'000; ++i) tags += "<b>";
    EXPECT_EQ(spoken(tags + "word"), "");
}

} // namespace
} // namespace quillmar
