#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

// The pages in Tests/Golden are written and changed by hand, never recorded.

namespace quillmar {

/// The contents of \p name in Tests/Golden.
inline std::string goldenFile(const std::string& name) {
    std::ifstream file(std::filesystem::path(QUILLMAR_GOLDEN) / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// True for equal texts; else shows the first line that differs.
inline testing::AssertionResult sameLines(const std::string& actual, const std::string& expected) {
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

} // namespace quillmar
