#include "QuillmarViewer/ItemLocation.h"

#include "Platform/UTF8.h"
#include "Tests/QuillmarViewer/SessionBus.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::optional<ItemLocation::Answer> answerFor(const std::string& uri) {
    std::optional<ItemLocation::Answer> answer;
    ItemLocation location;
    location.find(uri, [&](const ItemLocation::Answer& found) { answer = found; });
    waitUntil([&] { return answer.has_value(); });
    return answer;
}

TEST(ItemLocation, isThePathOfALocalAddress) {
    const auto answer = answerFor("file:///a%20b/c.txt");
    ASSERT_TRUE(answer && answer->url);
    EXPECT_EQ(answer->url->path(), "/a b/c.txt");
    EXPECT_EQ(answer->name, "c.txt");
}

TEST(ItemLocation, isNoneForANameThatNoFileSystemHas) {
    const auto answer = answerFor(std::string("file:///").append(256, 'x'));
    ASSERT_TRUE(answer);
    EXPECT_FALSE(answer->url);
    EXPECT_EQ(answer->message, "Its address is not one of a file.");
}

TEST(ItemLocation, isNoneForWhatProgramsCarryWithinThemselves) {
    for (const char* uri : {"resource:///", "resource:///%zz", "resource:%", "Resource:///a%0"}) {
        const auto answer = answerFor(uri);
        ASSERT_TRUE(answer) << uri;
        EXPECT_FALSE(answer->url) << uri;
        EXPECT_EQ(answer->name, "Item") << uri;
        EXPECT_EQ(answer->message, "Its address is not one of a file.") << uri;
    }
}

TEST(ItemLocation, cutsALongNameBetweenCharacters) {
    std::string uri = "file:///";
    for (int i = 0; i < 200; ++i) uri += "\xC3\xA4"; // two bytes each; 255 are kept
    const auto answer = answerFor(uri);
    ASSERT_TRUE(answer);
    EXPECT_EQ(UTF8::validPrefix(answer->name), answer->name.size());
    EXPECT_TRUE(answer->name.starts_with("\xC3\xA4"));
}

} // namespace
} // namespace quillmar
