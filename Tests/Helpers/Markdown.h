#pragma once

#include "Markdown/MarkdownRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace quillmar {

/// The HTML of \p markdown. Without \p resolveImage no local image is found.
inline std::string rendered(std::string markdown, ImageResolver resolveImage = {}) {
    return MarkdownRenderer{std::move(resolveImage)}.render(std::move(markdown));
}

/// A text that is one paragraph.
struct ParagraphCase {
    std::string markdown;
    std::string html; ///< inside the paragraph
};

inline void expectParagraphs(std::initializer_list<ParagraphCase> cases) {
    for (const auto& [markdown, html] : cases)
        EXPECT_EQ(rendered(markdown), std::string("<p>").append(html).append("</p>\n")) << markdown;
}

inline std::string repeated(std::string_view part, std::size_t times) {
    std::string text;
    text.reserve(part.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += part;
    return text;
}

/// True for equal texts; else says where they part. For texts too long to be printed whole.
inline testing::AssertionResult sameText(std::string_view actual, std::string_view expected) {
    if (actual == expected) return testing::AssertionSuccess();
    const std::size_t shorter = std::min(actual.size(), expected.size());
    std::size_t at = 0;
    while (at < shorter && actual[at] == expected[at]) ++at;
    const std::size_t from = at < 20 ? 0 : at - 20;
    return testing::AssertionFailure()
           << "different from byte " << at << " on; " << actual.size() << " bytes for " << expected.size()
           << "\nactual:   " << actual.substr(std::min(from, actual.size()), 80)
           << "\nexpected: " << expected.substr(std::min(from, expected.size()), 80);
}

} // namespace quillmar
