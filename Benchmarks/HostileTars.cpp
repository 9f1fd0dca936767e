#include "Benchmarks/HostileArchives.h"
#include "Tests/Helpers/TarBuilder.h"

#include <limits>
#include <string_view>

namespace quillmar {
namespace {

using Archive = std::function<Data(std::size_t bytes)>;
/// The bytes of member 0, 1 and so on.
using Member = std::function<Data(std::size_t index)>;

constexpr std::size_t mebibyte = 1'048'576;
/// Headers alone, 16,384 of them: below the limit of entries, up to which time may grow.
constexpr std::size_t manyHeaders = 8 * mebibyte;
constexpr std::size_t manyLongNames = 64 * mebibyte;
constexpr std::size_t oneLongName = mebibyte;

std::string times(std::size_t count, std::string_view unit) {
    std::string text;
    text.reserve(count * unit.size());
    for (; count > 0; --count) text.append(unit);
    return text;
}

/// As many members as there is room for.
Archive members(Member member) {
    return [=](std::size_t bytes) {
        Data archive = member(0);
        for (std::size_t i = 1; archive.size() < bytes; ++i) archive += member(i);
        return archive + endOfArchive();
    };
}

/// One member again and again, then a file.
Archive repeated(Data member) {
    return [=](std::size_t bytes) { return times(bytes / member.size(), member) + file("a") + endOfArchive(); };
}

/// Files whose names are made for their index; names that do not fit into a header stand before it.
Archive named(std::function<std::string(std::size_t index)> name) {
    return members([=](std::size_t i) {
        const std::string text = name(i);
        return text.size() <= TarHeader::nameField.length ? file(text) : longName(text) + file("short");
    });
}

/// One file with a name of all the bytes.
Archive oneName(std::string unit) {
    return [=](std::size_t bytes) { return tar({longName(times(bytes / unit.size(), unit)), file("short")}); };
}

std::string digits(std::size_t number, std::size_t length) {
    std::string text = std::to_string(number);
    return text.insert(0, length - text.size(), '0');
}

/// Marks of three combining classes in an order of their own for each \p index, which normalizing has to sort.
std::string combiningMarks(std::size_t index, std::size_t count) {
    constexpr std::string_view marks[] = {"\xCC\x81", "\xCC\xA3", "\xCC\xB4"}; // above, below, overlay
    std::string text = "a";
    for (std::size_t i = 0; i < count; ++i, index = index * 2'862'933'555'777'941'757U + 1)
        text.append(marks[(index >> 40) % 3]);
    return text;
}

Data sized(char type, const Data& size, const Data& name) {
    return header({.name = name, .type = type, .size = size});
}

const Data largestSize = base256(std::numeric_limits<std::int64_t>::max());

const HostileArchives names{
    {"tar: files in one folder", manyHeaders, named([](std::size_t i) { return "f" + std::to_string(i); })},
    {"tar: one name again and again", 50 * mebibyte, named([](std::size_t) { return "a"; })},
    {"tar: a file and a folder of one name in turn", manyHeaders,
     members([](std::size_t i) { return i % 2 == 0 ? file("a") : directory("a/"); })},
    {"tar: every entry a folder", manyHeaders,
     members([](std::size_t i) { return directory("d" + std::to_string(i) + "/"); })},
    {"tar: files beneath files", manyHeaders,
     named([](std::size_t i) { return times(i % 50, "a/").append("b"); })},
    {"tar: names that fall", manyHeaders, named([](std::size_t i) { return digits(99'999'999 - i, 8); })},
    {"tar: numbers of ninety digits", manyHeaders, named([](std::size_t i) { return digits(i, 90); })},
    {"tar: names that differ at their end", manyHeaders,
     named([](std::size_t i) { return std::string(80, 'x').append(digits(i, 8)); })},
    {"tar: names that differ at the end of a kibibyte", manyLongNames,
     named([](std::size_t i) { return std::string(1'000, 'x').append(digits(i, 8)); })},
    {"tar: names that sort alike", manyHeaders,
     named([](std::size_t i) { return "a" + times(i % 90, "\x01"); })},
    {"tar: names in upper and lower case", manyHeaders, named([](std::size_t i) {
         std::string name(16, 'a');
         for (std::size_t bit = 0; bit < name.size(); ++bit) name[bit] = (i >> bit & 1) == 0 ? 'a' : 'A';
         return name;
     })},
    {"tar: letters composed and decomposed", manyHeaders,
     named([](std::size_t i) { return digits(i / 2, 8).append(i % 2 == 0 ? "\xC3\xA9" : "e\xCC\x81"); })},
    {"tar: names of combining marks", manyHeaders, named([](std::size_t i) { return combiningMarks(i, 45); })},
    {"tar: names of a kibibyte of combining marks", manyLongNames,
     named([](std::size_t i) { return combiningMarks(i, 500); })},
    {"tar: names of Hangul", manyHeaders, named([](std::size_t i) {
         return digits(i, 8).append(times(10, "\xE1\x84\x80\xE1\x85\xA1\xE1\x86\xA8"));
     })},
    {"tar: names of Thai", manyHeaders,
     named([](std::size_t i) { return times(10, "\xE0\xB9\x80\xE0\xB8\x81").append(digits(i, 8)); })},
    {"tar: names that are no UTF-8", manyHeaders,
     named([](std::size_t i) { return times(80, "\xFF").append(digits(i, 8)); })},
    {"tar: names of markup", manyHeaders,
     named([](std::size_t i) { return times(80, "\"").append(digits(i, 8)); })},
    {"tar: names of a mebibyte", manyLongNames,
     named([](std::size_t i) { return digits(i, 8).append(mebibyte - 9, 'n'); })},
    {"tar: one name", oneLongName, oneName("n")},
    {"tar: one name of combining marks", oneLongName, oneName("\xCC\x81\xCC\xA3")},
    {"tar: one name that is no UTF-8", oneLongName, oneName("\xFF")},
};

const HostileArchives paths{
    {"tar: one path of folders", oneLongName, oneName("a/")},
    {"tar: one path of two dots", oneLongName, oneName("../")},
    {"tar: one path of single dots", oneLongName, oneName("./")},
    {"tar: one path of slashes", oneLongName, oneName("/")},
    {"tar: paths of two dots", manyHeaders,
     named([](std::size_t i) { return times(i % 32, "../").append("a"); })},
    {"tar: paths of single dots", manyHeaders,
     named([](std::size_t i) { return times(40, "./").append(std::to_string(i)); })},
    {"tar: paths of slashes", manyHeaders,
     named([](std::size_t i) { return times(90, "/").append(std::to_string(i)); })},
    {"tar: deep paths that share nothing", manyHeaders,
     named([](std::size_t i) { return digits(i, 8).append(times(45, "/a")); })},
    {"tar: deep paths that share all but their end", manyHeaders,
     named([](std::size_t i) { return times(45, "a/").append(digits(i, 8)); })},
    {"tar: paths of 64 KiB that share nothing", manyLongNames,
     named([](std::size_t i) { return digits(i, 8).append(times(32'768, "/a")); })},
    {"tar: paths of 64 KiB that share all but their end", manyLongNames,
     named([](std::size_t i) { return times(32'768, "a/").append(digits(i, 8)); })},
    {"tar: paths that each go a folder deeper", manyLongNames / 8,
     named([](std::size_t i) { return times(i, "a/").append("b"); })},
};

const HostileArchives headers{
    {"tar: pax headers without end", manyHeaders, repeated(pax("path", "a"))},
    {"tar: pax headers of ever new keywords", manyHeaders,
     members([](std::size_t i) { return pax("k" + std::to_string(i), "v"); })},
    {"tar: pax headers of a mebibyte", manyLongNames, repeated(pax("comment", Data(mebibyte - 40, 'x')))},
    {"tar: pax header of empty lines", mebibyte,
     [](std::size_t bytes) {
         return tar({paxHeader(Data(bytes, '\n')), file("a")});
     }},
    {"tar: pax header of one line", mebibyte,
     [](std::size_t bytes) {
         return tar({paxHeader(Data(bytes, '=')), file("a")});
     }},
    {"tar: pax header of ever new keywords", mebibyte,
     [](std::size_t bytes) {
         Data records;
         for (std::size_t i = 0; records.size() < bytes; ++i)
             records.append("9 ").append(digits(i, 6)).append("=\n");
         return tar({paxHeader(records), file("a")});
     }},
    {"tar: pax header of paths", mebibyte,
     [](std::size_t bytes) {
         return tar({paxHeader(times(bytes / 9, "9 path=a\n")), file("a")});
     }},
    {"tar: pax times of many digits", manyLongNames,
     repeated(pax("mtime", Data(mebibyte - 40, '1')) + file("a"))},
    {"tar: pax times with exponents", manyHeaders, repeated(pax("mtime", "1e999999999999999999") + file("a"))},
    {"tar: global headers", manyHeaders, repeated(globalPax("comment", "x"))},
    {"tar: long names, one after the other", manyHeaders, repeated(longName("a"))},
    {"tar: long names of a mebibyte, one after the other", manyLongNames,
     repeated(longName(Data(mebibyte - 1, 'n')))},
    {"tar: long link names", manyHeaders, repeated(longLinkName("a"))},
    {"tar: entries that are not listed", 4 * manyHeaders, repeated(sized('6', octal(0), "pipe"))},
    {"tar: sparse headers", manyHeaders, repeated(sized('S', octal(0), "sparse"))},
    {"tar: negative sizes", manyHeaders, repeated(sized('2', "-1", "link"))},
    {"tar: the largest sizes", manyHeaders, repeated(sized('4', largestSize, "device/"))},
    {"tar: sizes that sum up to more than there is", manyHeaders, members([](std::size_t i) {
         return pax("size", "0") + sized('5', largestSize, "d" + std::to_string(i));
     })},
    {"tar: data without end", manyLongNames,
     [](std::size_t bytes) { return file("a", Data(bytes, 'x')) + endOfArchive(); }},
};

} // namespace

HostileArchives hostileTars() {
    HostileArchives all = names;
    for (const auto& some : {paths, headers}) all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace quillmar
