#include "Platform/NaturalOrder.h"

#include "Tests/Helpers/Environment.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <random>
#include <unicode/coll.h>

namespace quillmar {
namespace {

using Strings = std::vector<std::string>;
using Views = std::vector<std::string_view>;
using Order = std::vector<std::size_t>;

Views viewsOf(const Strings& names) { return {names.begin(), names.end()}; }

Strings sortedIn(const std::string& locale, const Strings& names) {
    const ScopedEnvironment environment{{"LC_ALL", locale}};
    Strings sorted;
    for (const std::size_t index : naturalOrder(viewsOf(names))) sorted.push_back(names[index]);
    return sorted;
}

std::string repeated(const std::string& part, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += part;
    return text;
}

TEST(NaturalOrder, ofFewerThanTwoNamesIsThemselves) {
    EXPECT_EQ(naturalOrder({}), Order{});
    EXPECT_EQ(naturalOrder({"a"}), Order{0});
}

TEST(NaturalOrder, givesIndices) {
    const ScopedEnvironment english{{"LC_ALL", "C"}};
    EXPECT_EQ(naturalOrder({"c", "a", "b"}), (Order{1, 2, 0}));
}

TEST(NaturalOrder, comparesDigitsByTheirValue) {
    EXPECT_EQ(sortedIn("C", {"File 10", "File 9", "File 1", "File 100", "File 2.10", "File 2.9"}),
              (Strings{"File 1", "File 2.9", "File 2.10", "File 9", "File 10", "File 100"}));
    EXPECT_EQ(sortedIn("C", {"10000000000000000000000", "9999999999999999999999"}),
              (Strings{"9999999999999999999999", "10000000000000000000000"}));
}

TEST(NaturalOrder, putsUpperAndLowerCaseBesideEachOther) {
    EXPECT_EQ(sortedIn("C", {"b", "B", "A", "a", "readme", "README", "makefile"}),
              (Strings{"a", "A", "b", "B", "makefile", "readme", "README"}));
}

TEST(NaturalOrder, looksAtSpacesAndPunctuation) {
    // Thai ignores them by default.
    for (const char* locale : {"C", "th_TH"})
        EXPECT_EQ(sortedIn(locale, {"ac", "a-c", "a b", "ab"}), (Strings{"a b", "a-c", "ab", "ac"})) << locale;
}

TEST(NaturalOrder, keepsTheOrderOfEqualNames) {
    const ScopedEnvironment english{{"LC_ALL", "C"}};
    EXPECT_EQ(naturalOrder({"b", "a01", "a1", "a001"}), (Order{1, 2, 3, 0}));
    EXPECT_EQ(naturalOrder({"é", "e\u0301", "é"}), (Order{0, 1, 2}));
    EXPECT_EQ(naturalOrder({"e\u0301\u0323", "e\u0323\u0301"}), (Order{0, 1}));
    EXPECT_EQ(naturalOrder({std::string_view("a\0b", 3), "ab"}), (Order{0, 1}));

    const Strings same(20'000, "file");
    Order expected(same.size());
    std::iota(expected.begin(), expected.end(), std::size_t{0});
    EXPECT_EQ(naturalOrder(viewsOf(same)), expected);
}

TEST(NaturalOrder, followsTheLocale) {
    const Strings names{"z", "ä", "a"};
    EXPECT_EQ(sortedIn("de_DE.UTF-8", names), (Strings{"a", "ä", "z"}));
    EXPECT_EQ(sortedIn("sv_SE.UTF-8", names), (Strings{"a", "z", "ä"}));
    EXPECT_EQ(sortedIn("C", names), (Strings{"a", "ä", "z"}));
    EXPECT_EQ(sortedIn("cs_CZ", {"ch", "cz", "h", "i"}), (Strings{"cz", "h", "ch", "i"}));
}

TEST(NaturalOrder, asksTheVariableForOrder) {
    const ScopedEnvironment environment{
        {"LC_ALL", std::nullopt}, {"LC_COLLATE", "sv_SE"}, {"LC_TIME", "C"}, {"LANG", "C"}};
    EXPECT_EQ(naturalOrder({"ä", "z"}), (Order{1, 0}));
}

TEST(NaturalOrder, takesTextThatIsNoUTF8) {
    const ScopedEnvironment english{{"LC_ALL", "C"}};
    const Strings names{"b\xFF", "a\xC3", "\xED\xA0\x80", ""};
    Order order = naturalOrder(viewsOf(names));
    EXPECT_EQ(order.front(), 3U);
    std::sort(order.begin(), order.end());
    EXPECT_EQ(order, (Order{0, 1, 2, 3}));
}

/// \p names as ICU's comparison of two texts sorts them.
Strings sortedByICU(const char* locale, Strings names) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
    collator->setStrength(icu::Collator::TERTIARY);
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    collator->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, status);
    collator->setAttribute(UCOL_CASE_LEVEL, UCOL_ON, status);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    std::stable_sort(names.begin(), names.end(), [&](const std::string& a, const std::string& b) {
        return collator->compareUTF8(a, b, status) == UCOL_LESS;
    });
    EXPECT_TRUE(U_SUCCESS(status));
    return names;
}

/// Names of one to \p length parts.
Strings randomNames(const Strings& parts, std::size_t length, std::size_t count) {
    std::mt19937 random(20'240'304);
    Strings names(count);
    for (std::string& name : names)
        for (auto left = 1 + random() % length; left > 0; --left) name += parts[random() % parts.size()];
    return names;
}

TEST(NaturalOrder, isThatOfICUsComparison) {
    const Strings names =
        randomNames({"a", "B",  "b",  "é", "e\u0301",      "ß", "ss",     "9", "10", "007", " ", "-", "_", ".",
                     "Ж", "漢", "한", "א", "\u0323\u0301", "😀", "\u200D", "ก", "เ",  "fi",  "ﬁ", "Ａ"},
                    8, 3'000);
    for (const char* locale : {"en_US", "de_DE", "sv_SE", "ja_JP", "th_TH"})
        EXPECT_EQ(sortedIn(locale, names), sortedByICU(locale, names)) << locale;
}

TEST(NaturalOrder, ofASCIIIsThatOfICUsComparison) {
    Strings characters;
    for (char c = 0; c < 127; ++c) characters.emplace_back(1, c);
    characters.emplace_back("\x7F");
    const Strings few{"a", "A", "b", "B", "0", "1", "10", "\x01", " ", "."};
    const Strings digits{"0", "0000", "1", "9", repeated("0", 100), repeated("12345", 40), "x"};
    for (const Strings& names : {characters, randomNames(characters, 3, 5'000), randomNames(few, 6, 5'000),
                                 randomNames(digits, 5, 2'000)})
        EXPECT_EQ(sortedIn("C", names), sortedByICU("en_US", names));
}

TEST(NaturalOrder, ofASCIIIsTheSameBesideOtherNames) {
    const Strings names{"b1", "B01", "a_b", "a-b", "a b", "a", "A", "10", "9", "$", "~x", ""};
    Strings sorted = sortedIn("C", names);
    sorted.emplace_back("\u3042"); // behind all of ASCII
    Strings more = names;
    more.emplace_back("\u3042");
    EXPECT_EQ(sortedIn("C", more), sorted);
}

TEST(NaturalOrder, comparesTheLongestNamesOfFileSystemsWhole) {
    const std::string head = repeated("漢", 254); // 762 bytes
    EXPECT_EQ(sortedIn("C", {head + "10", head + "9"}), (Strings{head + "9", head + "10"}));
}

TEST(NaturalOrder, keepsTheOrderOfNamesThatAreAlikeForVeryLong) {
    const ScopedEnvironment english{{"LC_ALL", "C"}};
    const std::string head(1'100, 'x');
    EXPECT_EQ(naturalOrder({head + "b", head + "a", "a"}), (Order{2, 0, 1}));
}

TEST(NaturalOrder, keepsTheOrderOfHostileNamesThatAreAlike) {
    const ScopedEnvironment english{{"LC_ALL", "C"}};
    // Marks whose canonical order is the opposite; one that ICU writes as eighteen letters; a million letters.
    for (const auto& [name, count] :
         {std::pair(repeated("\u0F71\u0F72", 170), 5'000), std::pair(repeated("\u0301\u0323", 255), 5'000),
          std::pair(repeated("\uFDFA", 340), 2'000), std::pair(repeated("a", 1'000'000), 64),
          std::pair(repeated("\u0F71\u0F72", 170'000), 64)}) {
        const auto order = naturalOrder(Views(static_cast<std::size_t>(count), name));
        EXPECT_TRUE(std::ranges::is_sorted(order));
        EXPECT_EQ(order.size(), static_cast<std::size_t>(count));
    }
}

} // namespace
} // namespace quillmar
