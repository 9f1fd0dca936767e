#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string task(std::string_view text) {
    std::string html = "<li class=\"task\"><input type=\"checkbox\" disabled> ";
    html += text;
    return html += "</li>\n";
}

std::string doneTask(std::string_view text) {
    std::string html = "<li class=\"task\"><input type=\"checkbox\" disabled checked> ";
    html += text;
    return html += "</li>\n";
}

std::string tasks(std::string_view items) {
    std::string html = "<ul class=\"tasks\">\n";
    html += items;
    return html += "</ul>\n";
}

TEST(TaskList, hasCheckboxes) {
    EXPECT_EQ(rendered("- [ ] a\n- [x] b"), tasks(task("a") + doneTask("b")));
    EXPECT_EQ(rendered("* [ ] *a*"), tasks(task("<em>a</em>")));
}

TEST(TaskList, takesAnUpperCaseXForChecked) { EXPECT_EQ(rendered("- [X] a"), tasks(doneTask("a"))); }

TEST(TaskList, mayBeOrdered) {
    EXPECT_EQ(rendered("1. [x] a"), "<ol class=\"tasks\">\n" + doneTask("a") + "</ol>\n");
    EXPECT_EQ(rendered("3. [ ] a"), "<ol start=\"3\" class=\"tasks\">\n" + task("a") + "</ol>\n");
}

TEST(TaskList, mayHaveOtherItems) {
    EXPECT_EQ(rendered("- a\n- [ ] b\n- [c] d"), tasks("<li>a</li>\n" + task("b") + "<li>[c] d</li>\n"));
}

TEST(TaskList, mayBeLoose) {
    EXPECT_EQ(rendered("- [ ] a\n\n- [x] b"), tasks(task("<p>a</p>") + doneTask("<p>b</p>")));
}

TEST(TaskItem, mayBeNothingButItsBox) {
    EXPECT_EQ(rendered("- [ ]"), tasks(task("")));
    EXPECT_EQ(rendered("- [x]\n- [X] "), tasks(doneTask("") + doneTask("")));
}

TEST(TaskItem, boxIsFollowedByASpace) {
    EXPECT_EQ(rendered("- [x]a"), "<ul>\n<li>[x]a</li>\n</ul>\n");
    EXPECT_EQ(rendered("- [x]\ta"), "<ul>\n<li>[x]\ta</li>\n</ul>\n");
    EXPECT_EQ(rendered("- [ ]\u00A0a"), "<ul>\n<li>[ ]\u00A0a</li>\n</ul>\n");
    EXPECT_EQ(rendered("- [x](b)"), "<ul>\n<li><a href=\"b\">x</a></li>\n</ul>\n");
}

TEST(TaskItem, boxHoldsASpaceOrAnX) {
    for (const std::string box : {"[]", "[  ]", "[\u00A0]", "[\t]", "[y]", "[xx]", "[х]", "(x)", "\\[x]"}) {
        const std::string html = rendered("- " + box + " a");
        EXPECT_EQ(html.find("checkbox"), std::string::npos) << html;
    }
}

TEST(TaskItem, boxStandsAtTheStartOfTheFirstLine) {
    EXPECT_EQ(rendered("- a [x] b"), "<ul>\n<li>a [x] b</li>\n</ul>\n");
    EXPECT_EQ(rendered("-\n  [x] a"), "<ul>\n<li>[x] a</li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  [x] b"), "<ul>\n<li>a\n[x] b</li>\n</ul>\n");
    EXPECT_EQ(rendered("-      [x] a"), "<ul>\n<li><pre><code> [x] a\n</code></pre></li>\n</ul>\n");
    EXPECT_EQ(rendered("- \t[x] a"), "<ul>\n<li>[x] a</li>\n</ul>\n");
}

TEST(TaskItem, boxMayStandBehindThePaddingOfItsMarker) {
    EXPECT_EQ(rendered("-    [x] a"), tasks(doneTask("a")));
}

TEST(TaskItem, isNotATaskOutsideAList) {
    EXPECT_EQ(rendered("[ ] a"), "<p>[ ] a</p>\n");
    EXPECT_EQ(rendered("- > [ ] a"), "<ul>\n<li><blockquote>\n<p>[ ] a</p>\n</blockquote></li>\n</ul>\n");
    EXPECT_EQ(rendered("- # [ ] a"), "<ul>\n<li><h1 id=\"--a\">[ ] a</h1></li>\n</ul>\n");
}

TEST(TaskItem, hasOneBox) { EXPECT_EQ(rendered("- [ ] [x] a"), tasks(task("[x] a"))); }

TEST(TaskItem, boxComesBeforeAReference) {
    EXPECT_EQ(rendered("[x]: b\n\n- [x] a\n- a [x]"),
              tasks(doneTask("a") + "<li>a <a href=\"b\">x</a></li>\n"));
}

TEST(TaskItem, textIsTrimmed) {
    EXPECT_EQ(rendered("- [ ]      a"), tasks(task("a")));
    EXPECT_EQ(rendered("- [ ] \u00A0 # a"), tasks(task("<h1 id=\"a\">a</h1>")));
    EXPECT_EQ(rendered("- [ ] a  \n  b"), tasks(task("a\nb"))); // and so has no hard break
}

TEST(TaskItem, mayHoldFurtherBlocks) {
    EXPECT_EQ(rendered("- [x] a\n  b\n\n  c"), tasks(doneTask("<p>a\nb</p>\n<p>c</p>")));
    EXPECT_EQ(rendered("- [ ] ```\n  a\n  ```"), tasks(task("<pre><code>a\n</code></pre>")));
}

TEST(TaskItem, mayHoldTasks) {
    EXPECT_EQ(rendered("- [ ] a\n  - [x] b\n  - c"),
              tasks(task("a\n<ul class=\"tasks\">\n" + doneTask("b") + "<li>c</li>\n</ul>")));
    EXPECT_EQ(rendered("- a\n  - [ ] b"),
              "<ul>\n<li>a\n<ul class=\"tasks\">\n" + task("b") + "</ul></li>\n</ul>\n");
    EXPECT_EQ(rendered("- [ ] - [ ] a"), tasks(task("<ul class=\"tasks\">\n" + task("a") + "</ul>")));
}

TEST(TaskItem, emptyTaskMayHaveTextBelow) { EXPECT_EQ(rendered("- [ ]\n  a"), tasks(task("a"))); }

} // namespace
} // namespace quillmar
