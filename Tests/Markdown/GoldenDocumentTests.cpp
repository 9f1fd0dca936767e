#include "Tests/Helpers/GoldenPages.h"
#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

// Documents as people write them, with their whole HTML: each line of a golden page is a claim about what the
// line of Markdown should give.

namespace quillmar {
namespace {

/// Finds what lies in the folder "images".
std::optional<std::string> resolveImage(const std::string& path) {
    if (path.rfind("images/", 0) != 0) return std::nullopt;
    return std::string("cid:").append(path);
}

void expectGolden(const std::string& name) {
    const std::string markdown = goldenFile(name + ".md");
    ASSERT_FALSE(markdown.empty());
    EXPECT_TRUE(sameLines(rendered(markdown, resolveImage), goldenFile(name + ".html")));
}

TEST(GoldenDocument, readmeWithALittleOfEverything) { expectGolden("readme"); }

TEST(GoldenDocument, changelogWithReferences) { expectGolden("changelog"); }

TEST(GoldenDocument, releaseNotesWithFrontMatterAndTables) { expectGolden("release-notes"); }

TEST(GoldenDocument, tutorialWithNestedListsAndQuotes) { expectGolden("tutorial"); }

TEST(GoldenDocument, fieldNotesWithRawHTMLAndImages) { expectGolden("field-notes"); }

} // namespace
} // namespace quillmar
