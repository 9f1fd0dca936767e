#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

// Documents as people write them, with their whole HTML. The pages in Tests/Golden are written and changed by
// hand, never recorded: each line of theirs is a claim about what the line of Markdown should give.

namespace quillmar {
namespace {

std::string contentsOf(const std::string& name) {
    std::ifstream file(std::filesystem::path(QUILLMAR_GOLDEN) / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Finds what lies in the folder "images".
std::optional<std::string> resolveImage(const std::string& path) {
    if (path.rfind("images/", 0) != 0) return std::nullopt;
    return std::string("cid:").append(path);
}

/// True for equal texts; else shows the first line that differs.
testing::AssertionResult sameLines(const std::string& actual, const std::string& expected) {
    if (actual == expected) return testing::AssertionSuccess();
    std::istringstream actualLines(actual);
    std::istringstream expectedLines(expected);
    std::string actualLine;
    std::string expectedLine;
    for (int number = 1;; ++number) {
        const bool anyActual = static_cast<bool>(std::getline(actualLines, actualLine));
        const bool anyExpected = static_cast<bool>(std::getline(expectedLines, expectedLine));
        if (anyActual && anyExpected && actualLine == expectedLine) continue;
        return testing::AssertionFailure()
               << "line " << number << "\nactual:   " << (anyActual ? actualLine : "(none)")
               << "\nexpected: " << (anyExpected ? expectedLine : "(none)");
    }
}

void expectGolden(const std::string& name) {
    const std::string markdown = contentsOf(name + ".md");
    ASSERT_FALSE(markdown.empty());
    EXPECT_TRUE(sameLines(rendered(markdown, resolveImage), contentsOf(name + ".html")));
}

TEST(GoldenDocument, readmeWithALittleOfEverything) { expectGolden("readme"); }

TEST(GoldenDocument, changelogWithReferences) { expectGolden("changelog"); }

TEST(GoldenDocument, releaseNotesWithFrontMatterAndTables) { expectGolden("release-notes"); }

TEST(GoldenDocument, tutorialWithNestedListsAndQuotes) { expectGolden("tutorial"); }

TEST(GoldenDocument, fieldNotesWithRawHTMLAndImages) { expectGolden("field-notes"); }

} // namespace
} // namespace quillmar
