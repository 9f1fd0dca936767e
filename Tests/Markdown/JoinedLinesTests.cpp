#include "Markdown/JoinedLines.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

/// A document, and the lines of a block in it.
class JoinedLinesTest : public testing::Test {
protected:
    void read(std::string_view document) { buffer_ = document; }

    /// The first \p text in the document as it was read.
    std::string_view part(std::string_view text) const {
        const std::size_t position = buffer_.find(text);
        EXPECT_NE(position, std::string::npos) << text;
        return std::string_view(buffer_).substr(position, text.size());
    }

    std::string_view at(std::size_t position, std::size_t size) const {
        return std::string_view(buffer_).substr(position, size);
    }

    std::string buffer_;
    JoinedLines lines_{buffer_};
};

TEST_F(JoinedLinesTest, startWithOneLine) {
    read("> abc\n");
    lines_.start(part("abc"));
    EXPECT_EQ(lines_.text(), "abc");
}

TEST_F(JoinedLinesTest, stayInPlaceWhereNothingStandsBetweenThem) {
    read("ab\n\ncd\nef");
    lines_.start(part("ab"));
    lines_.append(at(3, 0));
    lines_.append(part("cd"));
    EXPECT_EQ(lines_.text(), "ab\n\ncd");
    EXPECT_EQ(lines_.text().data(), buffer_.data());
    EXPECT_EQ(buffer_, "ab\n\ncd\nef");
}

TEST_F(JoinedLinesTest, areMovedTogetherOverWhatStandsBetweenThem) {
    read("> ab\n>   cd\n> e");
    lines_.start(part("ab"));
    lines_.append(part("cd"));
    lines_.append(part("e"));
    EXPECT_EQ(lines_.text(), "ab\ncd\ne");
    EXPECT_EQ(lines_.text().data(), buffer_.data() + 2);
}

TEST_F(JoinedLinesTest, areMovedOverTheEndOfALineThatWasCutShort) {
    read("``` js x\nab\ncd");
    lines_.start(part("js"));
    lines_.append(part("ab"));
    lines_.append(part("cd"));
    EXPECT_EQ(lines_.text(), "js\nab\ncd");
}

TEST_F(JoinedLinesTest, areMovedOverLongerLines) {
    read("> a\n>     abcdefgh");
    lines_.start(part("a"));
    lines_.append(part("abcdefgh")); // where it comes to stand overlaps where it stood
    EXPECT_EQ(lines_.text(), "a\nabcdefgh");
}

TEST_F(JoinedLinesTest, leaveTheDocumentBehindThemAsItIs) {
    read("> a\n> b\n> c\nrest");
    lines_.start(part("a"));
    lines_.append(part("b"));
    EXPECT_EQ(lines_.text(), "a\nb");
    EXPECT_EQ(at(8, 8), "> c\nrest");
}

TEST_F(JoinedLinesTest, mayStartWithAnEmptyLine) {
    read("~~~\na");
    lines_.start(at(3, 0));
    EXPECT_EQ(lines_.text(), "");
    lines_.append(part("a"));
    EXPECT_EQ(lines_.text(), "\na");
}

TEST_F(JoinedLinesTest, mayEndWithTheDocument) {
    read("- a\n  b");
    lines_.start(part("a"));
    lines_.append(part("b"));
    EXPECT_EQ(lines_.text(), "a\nb");
    EXPECT_EQ(buffer_.size(), 7U);
}

TEST_F(JoinedLinesTest, mayLoseTheirBlankEnd) {
    read("a\nb\n \n\nc");
    lines_.start(part("a"));
    lines_.append(part("b"));
    lines_.appendBlank(part(" "));
    lines_.appendBlank(at(6, 0));
    EXPECT_EQ(lines_.text(), "a\nb\n \n");
    lines_.dropBlankEnd();
    EXPECT_EQ(lines_.text(), "a\nb");
}

TEST_F(JoinedLinesTest, keepBlankLinesInFrontOfOthers) {
    read("a\n \nb");
    lines_.start(part("a"));
    lines_.appendBlank(part(" "));
    lines_.append(part("b"));
    lines_.dropBlankEnd();
    EXPECT_EQ(lines_.text(), "a\n \nb");
}

TEST_F(JoinedLinesTest, keepAllLinesWhenNoneAtTheEndIsBlank) {
    read("a\nb");
    lines_.start(part("a"));
    lines_.dropBlankEnd();
    EXPECT_EQ(lines_.text(), "a");
    lines_.append(part("b"));
    lines_.dropBlankEnd();
    EXPECT_EQ(lines_.text(), "a\nb");
}

TEST_F(JoinedLinesTest, mayHoldBlankLinesThatStandNowhere) {
    read("a\n     \n     \nb");
    lines_.start(part("a"));
    lines_.appendBlank({});
    lines_.appendBlank({});
    lines_.append(part("b"));
    EXPECT_EQ(lines_.text(), "a\n\n\nb");
}

TEST_F(JoinedLinesTest, beginAnew) {
    read("> a\n> b\n\n> c\n> d");
    lines_.start(part("a"));
    lines_.append(part("b"));
    lines_.start(part("c"));
    EXPECT_EQ(lines_.text(), "c");
    lines_.append(part("d"));
    EXPECT_EQ(lines_.text(), "c\nd");
}

TEST_F(JoinedLinesTest, areAPartOfTheDocument) {
    read("> a\n> b");
    lines_.start(part("a"));
    lines_.append(part("b"));
    EXPECT_EQ(lines_.document().data(), buffer_.data());
    EXPECT_EQ(lines_.document().substr(2, 3), "a\nb");
}

} // namespace
} // namespace quillmar::Markdown
