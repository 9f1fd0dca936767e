#include "Folder/NameList.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmar {
namespace {

TEST(NameList, isEmptyAtFirst) { EXPECT_EQ(NameList().size(), 0U); }

TEST(NameList, keepsNamesInTheOrderInWhichTheyCame) {
    NameList names;
    for (const char* name : {"b", "", "a\n\xFF", "b"}) names.add(name);
    ASSERT_EQ(names.size(), 4U);
    EXPECT_STREQ(names[0], "b");
    EXPECT_STREQ(names[1], "");
    EXPECT_STREQ(names[2], "a\n\xFF");
    EXPECT_STREQ(names[3], "b");
}

TEST(NameList, keepsCopies) {
    NameList names;
    std::string name = "before";
    names.add(name.c_str());
    name = "behind";
    EXPECT_STREQ(names[0], "before");
}

TEST(NameList, keepsNamesWhereTheyAreFoundHoweverManyFollow) {
    NameList names;
    for (int i = 0; i < 10'000; ++i) names.add(std::to_string(i).c_str());
    ASSERT_EQ(names.size(), 10'000U);
    EXPECT_STREQ(names[0], "0");
    EXPECT_STREQ(names[5'000], "5000");
    EXPECT_STREQ(names[9'999], "9999");
}

} // namespace
} // namespace quillmar
