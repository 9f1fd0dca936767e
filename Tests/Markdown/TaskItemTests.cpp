#include "Markdown/TaskItem.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

TEST(TaskItem, isCheckedWithAnXOfEitherCase) {
    EXPECT_TRUE(TaskItem::parse("[x] a")->checked);
    EXPECT_TRUE(TaskItem::parse("[X] a")->checked);
    EXPECT_FALSE(TaskItem::parse("[ ] a")->checked);
}

TEST(TaskItem, hasTheTrimmedTextBehindItsBox) {
    EXPECT_EQ(TaskItem::parse("[ ] a  b")->text, "a  b");
    EXPECT_EQ(TaskItem::parse("[x]  \t\u00A0a \u3000")->text, "a");
    EXPECT_EQ(TaskItem::parse("[x] \va")->text, "\va");
}

TEST(TaskItem, mayHaveNoText) {
    for (const std::string_view line : {"[ ]", "[x]", "[X] ", "[ ]  \t "}) {
        const auto task = TaskItem::parse(line);
        ASSERT_TRUE(task) << line;
        EXPECT_EQ(task->text, "") << line;
    }
}

TEST(TaskItem, textIsAViewIntoTheLine) {
    const std::string line = "[ ]  a";
    EXPECT_EQ(TaskItem::parse(line)->text.data(), line.data() + 5);
}

TEST(TaskItem, textMayBeginWithAnotherBox) { EXPECT_EQ(TaskItem::parse("[ ] [x] a")->text, "[x] a"); }

TEST(TaskItem, isNoneWhenTheBoxIsIncomplete) {
    for (const std::string_view line : {"", "[", "[ ", "[x", "x] a", " ] a"})
        EXPECT_FALSE(TaskItem::parse(line)) << line;
}

TEST(TaskItem, isNoneBehindAnythingElse) {
    for (const std::string_view line : {" [ ] a", "\t[x] a", "a [x] b", "\\[x] a"})
        EXPECT_FALSE(TaskItem::parse(line)) << line;
}

TEST(TaskItem, isNoneWithoutASpaceBehindTheBox) {
    for (const std::string_view line : {"[x]a", "[ ]\ta", "[x]\u00A0a", "[x](b)", "[ ][x]", "[x]\n"})
        EXPECT_FALSE(TaskItem::parse(line)) << line;
}

TEST(TaskItem, isNoneWithAnythingElseInTheBox) {
    for (const std::string_view line :
         {"[] a", "[  ] a", "[y] a", "[\t] a", "[\u00A0] a", "[\u0445] a", "[\xD0] a"})
        EXPECT_FALSE(TaskItem::parse(line)) << line;
}

} // namespace
} // namespace quillmar::Markdown
