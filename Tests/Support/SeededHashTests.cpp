#include "Support/SeededHash.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace quillmar {
namespace {

TEST(SeededHash, isTheSameForTheSameText) {
    const SeededHash hash;
    EXPECT_EQ(hash("a name of some length", 3), hash(std::string("a name of some length"), 3));
}

TEST(SeededHash, differsByTextNumberAndLength) {
    const SeededHash hash;
    std::set<std::size_t> values;
    for (const std::string_view text :
         {std::string_view(), std::string_view("\0", 1), std::string_view("\0\0", 2), std::string_view("a"),
          std::string_view("12345678"), std::string_view("12345678\0", 9), std::string_view("123456789")})
        for (const std::uint64_t number : {0U, 1U, 2U}) values.insert(hash(text, number));
    EXPECT_EQ(values.size(), 21U);
}

TEST(SeededHash, isAnotherInEachObject) { EXPECT_NE(SeededHash()("a", 0), SeededHash()("a", 0)); }

} // namespace
} // namespace quillmar
