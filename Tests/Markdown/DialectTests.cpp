#include "Markdown/HTMLSanitizer.h"
#include "Markdown/MarkdownRenderer.h"

#include "Platform/Text.h"
#include "Tests/Helpers/PlainMarkdown.h"
#include "Tests/Helpers/RandomMarkdown.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

/// The parser against the plain model of the dialect, on random documents.
namespace quillmar {
namespace {

using RandomMarkdown::resolveImage;

std::string rendered(const std::string& markdown) { return MarkdownRenderer{resolveImage}.render(markdown); }

std::string expected(const std::string& markdown) { return PlainMarkdown::render(markdown, resolveImage); }

testing::AssertionResult areAlike(std::uint64_t seed, const std::string& text, const std::string& html,
                                  const std::string& expectedHTML) {
    if (html == expectedHTML) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "seed " << seed << "\n--- text ---\n"
                                       << text << "\n--- text, quoted ---\n"
                                       << testing::PrintToString(text) << "\n--- HTML ---\n"
                                       << html << "\n--- HTML expected ---\n"
                                       << expectedHTML;
}

void expectAlike(std::string_view kind, std::uint64_t documents) {
    for (std::uint64_t seed = 0; seed < documents; ++seed) {
        const std::string markdown = RandomMarkdown::text(RandomMarkdown::kind(kind), seed);
        ASSERT_TRUE(areAlike(seed, markdown, rendered(markdown), expected(markdown)));
    }
}

std::string replaced(std::string text, std::string_view old, std::string_view replacement) {
    for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += replacement.size())
        text.replace(at, old.size(), replacement);
    return text;
}

TEST(MarkdownDialect, readsAnyMixtureOfBlockCharacters) { expectAlike("block characters", 4'000); }

TEST(MarkdownDialect, readsAnyMixtureOfBlockStarts) { expectAlike("block pieces", 4'000); }

TEST(MarkdownDialect, nestsQuotesAndListsWithLazyLines) { expectAlike("containers", 6'000); }

TEST(MarkdownDialect, readsListsTightAndLooseWithTasks) { expectAlike("lists", 6'000); }

TEST(MarkdownDialect, readsFencedAndIndentedCode) { expectAlike("fences", 3'000); }

TEST(MarkdownDialect, readsHeadingsAndGivesThemIdentifiers) { expectAlike("headings", 3'000); }

TEST(MarkdownDialect, readsTables) { expectAlike("tables", 4'000); }

TEST(MarkdownDialect, readsRawHTMLBlocks) { expectAlike("raw HTML", 3'000); }

TEST(MarkdownDialect, collectsAndResolvesReferences) { expectAlike("references", 4'000); }

TEST(MarkdownDialect, readsFrontMatter) { expectAlike("front matter", 3'000); }

TEST(MarkdownDialect, resolvesEmphasis) { expectAlike("emphasis", 6'000); }

TEST(MarkdownDialect, readsLinksImagesAndCodeSpans) { expectAlike("links", 6'000); }

TEST(MarkdownDialect, readsAngleBracketsAndBareAddresses) { expectAlike("angle brackets", 6'000); }

TEST(MarkdownDialect, readsAnyMixtureOfInlineCharacters) { expectAlike("inline characters", 6'000); }

TEST(MarkdownDialect, readsDocumentsOfManyKinds) {
    for (std::uint64_t seed = 0; seed < 2'000; ++seed) {
        const std::string markdown = RandomMarkdown::mixture(seed);
        ASSERT_TRUE(areAlike(seed, markdown, rendered(markdown), expected(markdown)));
    }
}

TEST(MarkdownDialect, sanitizesRawHTML) {
    for (std::uint64_t seed = 0; seed < 10'000; ++seed) {
        const std::string html = RandomMarkdown::text(RandomMarkdown::htmlKind(), seed);
        ASSERT_TRUE(areAlike(seed, html, Markdown::sanitizeHTML(html, resolveImage),
                             PlainMarkdown::sanitizeHTML(html, resolveImage)));
    }
}

TEST(MarkdownDialect, linesMayEndInAnyLineBreak) {
    for (std::uint64_t seed = 0; seed < 1'000; ++seed) {
        const std::string markdown =
            replaced(RandomMarkdown::text(RandomMarkdown::kind("containers"), seed), "\r", "");
        const std::string html = rendered(markdown);
        ASSERT_TRUE(areAlike(seed, markdown, rendered(replaced(markdown, "\n", "\r\n")), html));
        ASSERT_TRUE(areAlike(seed, markdown, rendered(replaced(markdown, "\n", "\r")), html));
    }
}

TEST(MarkdownDialect, illFormedBytesAreReadAsReplacementCharacters) {
    const auto repaired = [](const std::string& text) { return repairedText(Data(text.begin(), text.end())); };
    for (const std::string_view kind : {"containers", "headings", "emphasis"}) {
        for (std::uint64_t seed = 0; seed < 1'000; ++seed) {
            const std::string markdown =
                replaced(RandomMarkdown::text(RandomMarkdown::kind(kind), seed), "é", "\xFF");
            ASSERT_TRUE(areAlike(seed, markdown, repaired(rendered(markdown)), expected(markdown)));
        }
    }
}

} // namespace
} // namespace quillmar
