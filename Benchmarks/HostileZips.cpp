#include "Benchmarks/HostileArchives.h"
#include "Tests/Helpers/ZipBuilder.h"

#include <algorithm>
#include <string_view>

namespace quillmar {
namespace {

using namespace ZipBuilder;

using Archive = std::function<Data(std::size_t bytes)>;

constexpr std::size_t mebibyte = 1'048'576;
/// About 20,000 short names: the limit of entries, up to which time may grow.
constexpr std::size_t manyHeaders = mebibyte;
/// Names, extra fields and comments of 64 KiB.
constexpr std::size_t manyLongFields = 64 * mebibyte;
constexpr std::size_t longestField = 65'535;

const Data localSignature = "PK\x03\x04"; // what a zip file begins with
constexpr std::uint64_t largest = 0xFFFF'FFFF'FFFF'FFFF;

std::string times(std::size_t count, std::string_view unit) {
    std::string text;
    text.reserve(count * unit.size());
    for (; count > 0; --count) text.append(unit);
    return text;
}

std::string digits(std::size_t number, std::size_t length) {
    std::string text = std::to_string(number);
    return text.insert(0, length - text.size(), '0');
}

/// A directory and its end.
Data zip(const Data& directory, std::size_t entries, const Data& comment = {}) {
    const End end{.entries = static_cast<std::uint16_t>(std::min<std::size_t>(entries, 0xFFFE)),
                  .size = static_cast<std::uint32_t>(directory.size()),
                  .offset = static_cast<std::uint32_t>(localSignature.size()),
                  .comment = comment};
    return localSignature + directory + end.bytes();
}

/// As many headers as there is room for, made for their index.
Data directoryOf(std::size_t bytes, const std::function<Header(std::size_t index)>& header) {
    Data directory;
    for (std::size_t i = 0; directory.size() < bytes; ++i) directory += header(i).bytes();
    return directory;
}

Archive headers(std::function<Header(std::size_t index)> header) {
    return [=](std::size_t bytes) {
        const Data directory = directoryOf(bytes, header);
        return zip(directory, directory.size() / header(0).bytes().size());
    };
}

Archive named(std::function<std::string(std::size_t index)> name) {
    return headers([=](std::size_t i) { return Header{.name = name(i)}; });
}

/// Short names, each with the same extra field.
Archive extra(Data field) {
    return headers([=](std::size_t i) {
        return Header{
            .name = std::to_string(i), .extra = field, .compressedSize = 0xFFFF'FFFF, .size = 0xFFFF'FFFF};
    });
}

const HostileArchives names{
    {"zip: files in one folder", manyHeaders, named([](std::size_t i) { return std::to_string(i); })},
    {"zip: one name again and again", 5 * mebibyte, named([](std::size_t) { return "a"; })},
    {"zip: every entry a folder", manyHeaders,
     named([](std::size_t i) { return std::to_string(i).append("/"); })},
    {"zip: empty names", 16 * mebibyte, named([](std::size_t) { return ""; })},
    {"zip: names of dots and slashes", manyHeaders,
     named([](std::size_t i) { return times(i % 9, "./").append("//"); })},
    {"zip: paths of two dots", manyHeaders,
     named([](std::size_t i) { return times(9, "../").append(std::to_string(i)); })},
    {"zip: backslashes", manyHeaders,
     named([](std::size_t i) { return times(9, "..\\").append(std::to_string(i)); })},
    {"zip: names of 64 KiB", manyLongFields,
     named([](std::size_t i) { return digits(i, 8).append(longestField - 8, 'n'); })},
    {"zip: paths of 64 KiB that share nothing", manyLongFields,
     named([](std::size_t i) { return digits(i, 8).append(times(32'763, "/a")); })},
    {"zip: paths of 64 KiB that share all but their end", manyLongFields,
     named([](std::size_t i) { return times(32'763, "a/").append(digits(i, 8)); })},
    {"zip: names of combining marks", manyHeaders,
     named([](std::size_t i) { return digits(i, 8).append(times(400, "\xCC\x81\xCC\xA3")).substr(0, 1'000); })},
    {"zip: names in code page 437", manyHeaders * 2,
     named([](std::size_t i) { return digits(i, 8).append(times(60, "\xB0")); })},
    {"zip: names of 64 KiB in code page 437", manyLongFields,
     named([](std::size_t i) { return digits(i, 8).append(longestField - 8, '\xB0'); })},
    {"zip: names with NUL", manyHeaders, named([](std::size_t i) { return digits(i, 8).append(8, '\0'); })},
};

const HostileArchives fields{
    {"zip: extra fields of empty blocks", manyLongFields, extra(times(longestField / 4, extraBlock(0, "")))},
    {"zip: extra fields of timestamps", manyLongFields,
     extra(times(longestField / 9, extraBlock(0x5455, Data("\x01") + u32(1))))},
    {"zip: extra fields of ZIP64 sizes", manyLongFields,
     extra(times(longestField / 12, extraBlock(1, u64(largest))))},
    {"zip: ZIP64 sizes at their largest", manyHeaders, extra(extraBlock(1, u64(largest) + u64(largest)))},
    {"zip: ZIP64 sizes just below 2^63", manyHeaders,
     extra(extraBlock(1, u64(largest >> 1) + u64(largest >> 1)))},
    {"zip: extra blocks that claim more than there is", manyHeaders, extra(u16(1) + u16(0xFFFF))},
    {"zip: comments of 64 KiB", manyLongFields, headers([](std::size_t i) {
         return Header{.name = std::to_string(i), .comment = Data(longestField, 'c')};
     })},
    {"zip: name lengths that lie", manyHeaders,
     headers([](std::size_t i) { return Header{.name = std::to_string(i), .nameLength = 0xFFFF}; })},
    {"zip: overlapping bombs", manyHeaders, headers([](std::size_t i) {
         return Header{.name = std::to_string(i), .compressedSize = 100, .size = 0xFFFF'FFFE};
     })},
    {"zip: encrypted entries", manyHeaders,
     headers([](std::size_t i) { return Header{.name = std::to_string(i), .flags = 1}; })},
    {"zip: dates that do not exist", manyHeaders, headers([](std::size_t i) {
         const auto bits = static_cast<std::uint16_t>(i * 40'503);
         return Header{.name = std::to_string(i), .time = 0xFFFF, .date = bits};
     })},
    {"zip: symbolic links", manyHeaders, headers([](std::size_t i) {
         return Header{.name = std::to_string(i), .size = 4, .externalAttributes = 0xA1FF'0000};
     })},
};

const Header shortHeader{.name = "a"};

const HostileArchives ends{
    {"zip: no entry where many are promised", manyHeaders,
     [](std::size_t bytes) { return zip(Data(bytes, '\0'), 0xFFFE); }},
    {"zip: ZIP64 promises more entries than there are bytes", manyHeaders,
     [](std::size_t bytes) {
         const Data directory = directoryOf(bytes, [](std::size_t) { return shortHeader; });
         const std::uint64_t offset = localSignature.size();
         const Zip64End end{.entries = largest, .size = directory.size(), .offset = offset};
         return localSignature + directory + end.bytes() + zip64Locator(offset + directory.size()) +
                End{.entries = 0xFFFF, .size = 0xFFFF'FFFF, .offset = 0xFFFF'FFFF}.bytes();
     }},
    {"zip: a directory of 256 MiB", 256 * mebibyte,
     [](std::size_t bytes) {
         return zip(Data(bytes - 100, '\0'), 1); // the limit of directories counts its last byte
     }},
    {"zip: a comment of ends", longestField,
     [](std::size_t bytes) {
         const Data comment = times(bytes / 4, "PK\x05\x06");
         return zip(directoryOf(60 * bytes / 8, [](std::size_t) { return shortHeader; }), 1, comment);
     }},
    {"zip: a comment of half signatures", longestField,
     [](std::size_t bytes) { return zip(shortHeader.bytes(), 1, times(bytes / 3, "PK\x05")); }},
    {"zip: no end", 64 * mebibyte, [](std::size_t bytes) { return localSignature + Data(bytes, 'P'); }},
};

} // namespace

HostileArchives hostileZips() {
    HostileArchives all = names;
    for (const auto& some : {fields, ends}) all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace quillmar
