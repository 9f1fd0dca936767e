#include "Archives/PaxRecords.h"

#include "Tests/Helpers/TarBuilder.h"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

using Modified = PaxRecords::Modified;

PaxRecords records(const Data& extendedHeader) {
    PaxRecords pending;
    pending.merge(extendedHeader);
    return pending;
}

std::optional<std::int64_t> sizeFrom(const Data& value) { return records(paxRecord("size", value)).size(); }
std::optional<Modified> modifiedFrom(const Data& value) {
    return records(paxRecord("mtime", value)).modified();
}

TEST(PaxRecords, areNoneAtFirst) {
    const PaxRecords none;
    EXPECT_EQ(none.path(), std::nullopt);
    EXPECT_EQ(none.size(), std::nullopt);
    EXPECT_EQ(none.modified(), std::nullopt);
    EXPECT_EQ(none.byteCount(), 0U);
}

TEST(PaxRecords, areLinesOfKeywordAndValue) {
    const auto pending = records("12 path=a/b\n11 size=42\n12 mtime=7\n");
    EXPECT_EQ(pending.path(), "a/b");
    EXPECT_EQ(pending.size(), 42);
    EXPECT_EQ(pending.modified(), Modified{7});
}

TEST(PaxRecords, needNotStateTheirLength) {
    EXPECT_EQ(records("999999 path=a\n").path(), "a");
    EXPECT_EQ(records("0 path=a\n").path(), "a");
    EXPECT_EQ(records("-1 path=a\n").path(), "a");
    EXPECT_EQ(records("x path=a\n").path(), "a");
    EXPECT_EQ(records(" path=a\n").path(), "a");
}

TEST(PaxRecords, needNoLineFeedAtTheEnd) { EXPECT_EQ(records("8 path=a").path(), "a"); }

TEST(PaxRecords, endAtALineFeedInAValue) {
    const auto pending = records("15 path=a\nb\n9 size=5\n");
    EXPECT_EQ(pending.path(), "a");
    EXPECT_EQ(pending.size(), 5);
}

TEST(PaxRecords, areNoneWithoutSpaceOrEquals) {
    EXPECT_EQ(records("path=a\n").byteCount(), 0U);
    EXPECT_EQ(records("8 path\n").byteCount(), 0U);
    EXPECT_EQ(records("path=a b\n").byteCount(), 0U);
    EXPECT_EQ(records("\n\n\n").byteCount(), 0U);
    EXPECT_EQ(records("").byteCount(), 0U);
    EXPECT_EQ(records("\n\n9 path=a\n\n\n").path(), "a");
}

TEST(PaxRecords, keepSpacesAndEqualsInValues) { EXPECT_EQ(records("14 path=a = b=c\n").path(), "a = b=c"); }

TEST(PaxRecords, keepEmptyValues) {
    EXPECT_EQ(records("8 path=\n").path(), "");
    EXPECT_EQ(records("3 =\n").byteCount(), 0U);
}

TEST(PaxRecords, replaceEarlierOnes) {
    auto pending = records("8 path=a\n8 path=b\n9 size=1\n");
    EXPECT_EQ(pending.path(), "b");
    pending.merge("8 path=c\n");
    EXPECT_EQ(pending.path(), "c");
    EXPECT_EQ(pending.size(), 1);
}

TEST(PaxRecords, replaceASizeByNoneWhenItIsNoNumber) {
    EXPECT_EQ(records("9 size=1\n9 size=x\n").size(), std::nullopt);
}

TEST(PaxRecords, goWhenCleared) {
    auto pending = records("8 path=a\n9 size=1\n10 mtime=1\n");
    pending.clear();
    EXPECT_EQ(pending.path(), std::nullopt);
    EXPECT_EQ(pending.size(), std::nullopt);
    EXPECT_EQ(pending.modified(), std::nullopt);
    EXPECT_EQ(pending.byteCount(), 0U);
}

TEST(PaxRecords, countTheBytesOfKeywordsAndValues) {
    auto pending = records("8 path=abc\n7 x=yz\n");
    EXPECT_EQ(pending.byteCount(), 7U + 3U);
    pending.merge("8 path=a\n");
    EXPECT_EQ(pending.byteCount(), 5U + 3U);
    pending.merge("8 path=abcdef\n");
    EXPECT_EQ(pending.byteCount(), 10U + 3U);
}

TEST(PaxRecords, repairTextThatIsNotUTF8) {
    const auto pending = records("10 path=a\xFFz\n8 \xFFk=1\n");
    EXPECT_EQ(pending.path(), "a\uFFFDz");
    EXPECT_EQ(pending.byteCount(), 4U + 5U + 4U + 1U);
}

TEST(PaxRecords, keepZeroBytesInValues) {
    EXPECT_EQ(records(Data("8 path=a\0b\n", 11)).path(), Data("a\0b", 3));
}

TEST(PaxRecords, readSizesOf64Bits) {
    EXPECT_EQ(sizeFrom("0"), 0);
    EXPECT_EQ(sizeFrom("123"), 123);
    EXPECT_EQ(sizeFrom("+5"), 5);
    EXPECT_EQ(sizeFrom("-5"), -5);
    EXPECT_EQ(sizeFrom("000000000000000000000000123"), 123);
    EXPECT_EQ(sizeFrom("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(sizeFrom("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(PaxRecords, readNoSizeFromAnythingElse) {
    for (const char* value : {"", "+", "-", "+-1", " 1", "1 ", "1.0", "1e3", "0x10", "9223372036854775808",
                              "-9223372036854775809", "\u0661", "1_000", "1,000"})
        EXPECT_EQ(sizeFrom(value), std::nullopt) << value;
}

TEST(PaxRecords, readTimesRoundedDown) {
    EXPECT_EQ(modifiedFrom("1709543700"), Modified{1'709'543'700});
    EXPECT_EQ(modifiedFrom("1709543700.987654321"), Modified{1'709'543'700});
    EXPECT_EQ(modifiedFrom("0"), Modified{0});
    EXPECT_EQ(modifiedFrom("-0.5"), Modified{-1});
    EXPECT_EQ(modifiedFrom("-1"), Modified{-1});
    EXPECT_EQ(modifiedFrom("-1.000001"), Modified{-2});
    EXPECT_EQ(modifiedFrom("+1.5"), Modified{1});
}

TEST(PaxRecords, readTimesWithAPointOrAnExponent) {
    EXPECT_EQ(modifiedFrom("5."), Modified{5});
    EXPECT_EQ(modifiedFrom(".5"), Modified{0});
    EXPECT_EQ(modifiedFrom("-.5"), Modified{-1});
    EXPECT_EQ(modifiedFrom("1e3"), Modified{1000});
    EXPECT_EQ(modifiedFrom("1.5E+3"), Modified{1500});
    EXPECT_EQ(modifiedFrom("1500e-3"), Modified{1});
    EXPECT_EQ(modifiedFrom("1.e1"), Modified{10});
}

TEST(PaxRecords, readNoTimeFromAnythingElse) {
    for (const char* value :
         {"",   "+",   "-",    ".",   "e5",   ".e5",      "1e",  "1e+",    "+-1",   "-+1", "--1",   " 1",
          "1 ", "1,5", "0x10", "inf", "-inf", "infinity", "nan", "nan(1)", "1.2.3", "1s",  "\u0661"})
        EXPECT_EQ(modifiedFrom(value), std::nullopt) << value;
}

TEST(PaxRecords, readNoTimeThatIsNotFinite) {
    EXPECT_EQ(modifiedFrom("1e309"), std::nullopt);
    EXPECT_EQ(modifiedFrom("-1e309"), std::nullopt);
    EXPECT_EQ(modifiedFrom("1e99999999999999999999999"), std::nullopt);
    EXPECT_EQ(modifiedFrom(Data(400, '9')), std::nullopt);
    EXPECT_EQ(modifiedFrom("0." + Data(2'000, '0') + "1e5000"), std::nullopt);
}

TEST(PaxRecords, readATimeTooSmallForADoubleAsZero) {
    EXPECT_EQ(modifiedFrom("1e-400"), Modified{0});
    EXPECT_EQ(modifiedFrom("-1e-400"), Modified{0});
    EXPECT_EQ(modifiedFrom("1e-99999999999999999999999"), Modified{0});
    EXPECT_EQ(modifiedFrom("0." + Data(400, '0') + "1"), Modified{0});
    EXPECT_EQ(modifiedFrom(Data(400, '9') + "e-900"), Modified{0});
    EXPECT_EQ(modifiedFrom("0e99999999999999999999999"), Modified{0});
}

TEST(PaxRecords, readATimeOutside64BitsAsNone) {
    EXPECT_EQ(modifiedFrom("9223372036854775807"), Modified{});
    EXPECT_EQ(modifiedFrom("9223372036854774784"), Modified{9'223'372'036'854'774'784});
    EXPECT_EQ(modifiedFrom("-9223372036854775808"), Modified{std::numeric_limits<std::int64_t>::min()});
    EXPECT_EQ(modifiedFrom("-9223372036854777856"), Modified{});
    EXPECT_EQ(modifiedFrom("1e300"), Modified{});
}

TEST(PaxRecords, readTimesOfAnyLength) {
    EXPECT_EQ(modifiedFrom("1." + Data(1'000'000, '9')), Modified{2}); // the nearest double
    EXPECT_EQ(modifiedFrom(Data(1'000'000, '0') + "7"), Modified{7});
    EXPECT_EQ(modifiedFrom(Data("1").append(1'000'000, '0').append("e-1000000")), Modified{1});
}

TEST(PaxRecords, readTimesTheSameWayInEveryLocale) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(modifiedFrom("1.5"), Modified{1});
    EXPECT_EQ(modifiedFrom("1,5"), std::nullopt);
    std::setlocale(LC_NUMERIC, before.c_str());
}

} // namespace
} // namespace quillmar
