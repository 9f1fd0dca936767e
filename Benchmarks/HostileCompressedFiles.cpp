#include "Benchmarks/HostileArchives.h"
#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/TarBuilder.h"

#include <lzma.h>
#include <string_view>

namespace quillmar {
namespace {

constexpr std::size_t mebibyte = 1'048'576;

/// RFC 1952, 2.3: a header without a name.
const Data gzipHeader("\x1F\x8B\x08\0\0\0\0\0\0\3", 10);

std::string times(std::size_t count, std::string_view unit) {
    std::string text;
    text.reserve(count * unit.size());
    for (; count > 0; --count) text.append(unit);
    return text;
}

/// Bits as deflate writes them, the lowest of a byte first (RFC 1951, 3.1.1): eight times the same \p bits are
/// whole bytes.
Data eightTimes(std::string_view bits) {
    Data bytes(bits.size(), '\0');
    for (std::size_t i = 0; i < 8 * bits.size(); ++i)
        if (bits[i % bits.size()] == '1') bytes[i / 8] = static_cast<char>(bytes[i / 8] | 1 << i % 8);
    return bytes;
}

std::string number(unsigned value, int bits) {
    std::string text;
    for (; bits > 0; --bits, value >>= 1) text += (value & 1) != 0 ? '1' : '0';
    return text;
}

/// A block of nothing that brings codes of its own (RFC 1951, 3.2.7): byte 0 and the end of the block have one
/// bit each.
std::string emptyDynamicBlock() {
    std::string bits = "0" + number(2, 2);               // not the last; dynamic codes
    bits += number(0, 5) + number(0, 5) + number(14, 4); // 257 literals, 1 distance, 18 code lengths
    for (int i = 0; i < 18; ++i) bits += number(i == 2 || i == 17 ? 1 : 0, 3); // lengths of 18 and of 1
    bits += "0";                                                               // byte 0: one bit
    bits += "1" + number(138 - 11, 7) + "1" + number(117 - 11, 7);             // 255 without a code
    bits += "00";      // the end of the block, the distance: one bit each
    return bits + "1"; // the end
}

/// Blocks of nothing before a member of a few bytes.
HostileArchive emptyBlocks(std::string name, Data block) {
    return {std::move(name), 16 * mebibyte, [=](std::size_t bytes) {
                return gzipHeader + times(bytes / block.size(), block) + gzip("text").substr(gzipHeader.size());
            }};
}

/// \p archive with every block of its data claiming a dictionary of \p code (the xz file format, 5.3.1).
Data withDictionary(Data archive, unsigned char code) {
    constexpr std::size_t blockHeader = 12; // behind the stream's
    constexpr std::size_t dictionary = blockHeader + 4;
    constexpr std::size_t checksum = blockHeader + 8;
    archive[dictionary] = static_cast<char>(code);
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(archive.data()) + blockHeader;
    const std::uint32_t sum = lzma_crc32(bytes, checksum - blockHeader, 0);
    for (std::size_t i = 0; i < 4; ++i) archive[checksum + i] = static_cast<char>(sum >> 8 * i);
    return archive;
}

Data manyFiles(std::size_t bytes) {
    Data archive;
    for (std::size_t i = 0; archive.size() < bytes; ++i) archive += file("f" + std::to_string(i));
    return archive + endOfArchive();
}

Data oneFile(std::size_t bytes) { return file("zeros", Data(bytes, '\0')) + endOfArchive(); }

const HostileArchives gzipFiles{
    emptyBlocks("gz: empty stored blocks", Data("\0\0\0\xFF\xFF", 5)),
    emptyBlocks("gz: empty blocks of fixed codes", eightTimes("0100000000")),
    emptyBlocks("gz: empty blocks of dynamic codes", eightTimes(emptyDynamicBlock())),
    {"gz: members without end", 16 * mebibyte,
     [](std::size_t bytes) { return times(bytes / gzip("a").size(), gzip("a")); }},
    {"gz: a bomb", 64 * mebibyte, [](std::size_t bytes) { return gzip(Data(bytes, '\0')); }},
    {"gz: a bomb of line feeds", 64 * mebibyte, [](std::size_t bytes) { return gzip(Data(bytes, '\n')); }},
    {"gz: a bomb of markup", 64 * mebibyte, [](std::size_t bytes) { return gzip(Data(bytes, '<')); }},
    {"gz: a bomb in a bomb", 64 * mebibyte, [](std::size_t bytes) { return gzip(gzip(Data(bytes, '\0'))); }},
    {"gz: a name without end", 16 * mebibyte,
     [](std::size_t bytes) { return Data("\x1F\x8B\x08\x08\0\0\0\0\0\3", 10) + Data(bytes, 'n'); }},
    {"gz: a name of 60 KB", 60'000,
     [](std::size_t bytes) {
         return Data("\x1F\x8B\x08\x08\0\0\0\0\0\3", 10) + Data(bytes, '\xE9') + Data(1, '\0') +
                gzip("text").substr(gzipHeader.size());
     }},
    {"gz: noise", 16 * mebibyte,
     [](std::size_t bytes) {
         Data noise(bytes, '\0');
         std::uint64_t state = 1;
         for (char& byte : noise) {
             state = state * 6'364'136'223'846'793'005U + 1'442'695'040'888'963'407U;
             byte = static_cast<char>(state >> 56);
         }
         return gzip(noise);
     }},
};

const HostileArchives tarGzipFiles{
    {"tar.gz: a bomb", 256 * mebibyte, [](std::size_t bytes) { return gzip(oneFile(bytes)); }},
    {"tar.gz: many files", 8 * mebibyte, [](std::size_t bytes) { return gzip(manyFiles(bytes)); }},
    {"tar.gz: one name again and again", 50 * mebibyte,
     [](std::size_t bytes) { return gzip(times(bytes / 512, file("a")) + endOfArchive()); }},
    {"tar.gz: pax headers without end", 64 * mebibyte,
     [](std::size_t bytes) { return gzip(times(bytes / 1'024, pax("path", "a")) + endOfArchive()); }},
    {"tar.gz: entries that are not listed", 64 * mebibyte,
     [](std::size_t bytes) { return gzip(times(bytes / 512, header({.name = "pipe", .type = '6'}))); }},
    {"tar.gz: long names of a mebibyte", 64 * mebibyte,
     [](std::size_t bytes) {
         const Data member = longName(Data(mebibyte - 1, 'n')) + file("short");
         return gzip(times(bytes / member.size(), member));
     }},
};

const HostileArchives xzFiles{
    {"tar.xz: a bomb", 64 * mebibyte, [](std::size_t bytes) { return xz(oneFile(bytes)); }},
    {"tar.xz: a bomb in blocks", 64 * mebibyte,
     [](std::size_t bytes) { return xz(oneFile(bytes), 4 * mebibyte); }},
    {"tar.xz: blocks of 4 KiB", 16 * mebibyte, [](std::size_t bytes) { return xz(oneFile(bytes), 4'096); }},
    {"tar.xz: one name again and again", 50 * mebibyte,
     [](std::size_t bytes) { return xz(times(bytes / 512, file("a")) + endOfArchive()); }},
    {"xz: a bomb", 64 * mebibyte, [](std::size_t bytes) { return xz(Data(bytes, '\0')); }},
    {"xz: streams without end", 16 * mebibyte,
     [](std::size_t bytes) { return times(bytes / xz("a").size(), xz("a")); }},
    {"tar.xz: a dictionary of 192 MiB", 64 * mebibyte,
     [](std::size_t bytes) { return withDictionary(xz(oneFile(bytes)), 31); }},
    {"tar.xz: a dictionary of 1 GiB", 64 * mebibyte,
     [](std::size_t bytes) { return withDictionary(xz(oneFile(bytes)), 36); }},
};

} // namespace

HostileArchives hostileCompressedFiles() {
    HostileArchives all = gzipFiles;
    for (const auto& some : {tarGzipFiles, xzFiles}) all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace quillmar
