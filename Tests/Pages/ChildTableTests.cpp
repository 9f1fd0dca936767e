#include "Pages/ChildTable.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace quillmar {
namespace {

TEST(ChildTable, findsAChildByParentAndName) {
    ChildTable table;
    table.insert(0, "a", 1);
    table.insert(1, "a", 2);
    table.insert(0, "b", 3);
    EXPECT_EQ(table.find(0, "a"), 1U);
    EXPECT_EQ(table.find(1, "a"), 2U);
    EXPECT_EQ(table.find(0, "b"), 3U);
}

TEST(ChildTable, findsNothingElse) {
    ChildTable table;
    EXPECT_EQ(table.find(0, "a"), std::nullopt);
    table.insert(0, "a", 1);
    EXPECT_EQ(table.find(0, "A"), std::nullopt);
    EXPECT_EQ(table.find(0, "ab"), std::nullopt);
    EXPECT_EQ(table.find(0, ""), std::nullopt);
    EXPECT_EQ(table.find(2, "a"), std::nullopt);
}

TEST(ChildTable, keepsWhatItHoldsWhileItGrows) {
    std::vector<std::string> names;
    for (int i = 0; i < 10'000; ++i) names.push_back(std::to_string(i));
    ChildTable table;
    for (NodeIndex i = 0; i < names.size(); ++i) table.insert(i % 7, names[i], i + 1);
    for (NodeIndex i = 0; i < names.size(); ++i) {
        EXPECT_EQ(table.find(i % 7, names[i]), i + 1);
        EXPECT_EQ(table.find(i % 7 + 1, names[i]), std::nullopt);
    }
}

} // namespace
} // namespace quillmar
