#include "Support/HTML.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>

namespace quillmar::HTML {
namespace {

TEST(HTMLEscape, replacesTheFiveCharacters) {
    EXPECT_EQ(escape("a<b & 'c'"), "a&lt;b &amp; &#39;c&#39;");
    EXPECT_EQ(escape("\">"), "&quot;&gt;");
    EXPECT_EQ(escape(""), "");
}

TEST(HTMLEscape, copiesEverythingElse) {
    EXPECT_EQ(escape("été \U0001F331 \t\n"), "été \U0001F331 \t\n");
    EXPECT_EQ(escape(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(HTMLEscape, replacesCharactersInsideCombiningSequences) {
    EXPECT_EQ(escape("<\u0301img\u0600>\"\u20DD"), "&lt;\u0301img\u0600&gt;&quot;\u20DD");
}

TEST(HTMLEscape, findsACharacterWhereverItStands) {
    // Long enough for several of the blocks in which the text is searched.
    for (std::size_t before = 0; before < 200; ++before) {
        const std::string left(before, 'x');
        const std::string right(200 - before, 'y');
        EXPECT_EQ(escape(left + "<" + right), left + "&lt;" + right);
        EXPECT_EQ(escape(left + "&&" + right), left + "&amp;&amp;" + right);
    }
}

TEST(HTMLEscape, appendsBehindWhatIsThere) {
    std::string html = "<p>";
    appendEscaped(html, "a&b");
    EXPECT_EQ(html, "<p>a&amp;b");
}

TEST(HTMLEscape, treatsACharacterLikeATextOfOne) {
    for (const char c : std::string_view("a&<>\"'\n\xC3")) {
        std::string html = "x";
        appendEscaped(html, c);
        EXPECT_EQ(html, "x" + escape({&c, 1}));
    }
}

TEST(HTMLCount, joinsTheNumberAndItsNoun) {
    const ScopedEnvironment english({{"LC_ALL", "C"}});
    EXPECT_EQ(count(1, "line"), "1 line");
    EXPECT_EQ(count(0, "line"), "0 lines");
    EXPECT_EQ(count(-1, "line"), "-1 lines");
    EXPECT_EQ(count(2, "entry", "entries"), "2 entries");
    EXPECT_EQ(count(1, "entry", "entries"), "1 entry");
    EXPECT_EQ(count(1234, "item"), "1,234 items");
}

TEST(HTMLCount, groupsAsTheLocaleDoes) {
    const ScopedEnvironment german({{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_EQ(count(1234, "item"), "1.234 items");
}

} // namespace
} // namespace quillmar::HTML
