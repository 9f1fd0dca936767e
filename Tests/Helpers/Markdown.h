#pragma once

#include "Markdown/MarkdownRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace quillmar {

/// The HTML of \p markdown. Without \p resolveImage no local image is found.
inline std::string rendered(std::string markdown, ImageResolver resolveImage = {}) {
    return MarkdownRenderer{std::move(resolveImage)}.render(std::move(markdown));
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
