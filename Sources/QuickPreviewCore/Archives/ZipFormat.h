#pragma once

#include "Platform/Data.h"
#include "Support/ByteReader.h"

#include <cstdint>

/// The structures of a zip archive that a listing needs, named as in the zip application note (APPNOTE.TXT, 4.3
/// to 4.5). Numbers are little-endian. No value here is more than a claim of the file.
namespace quillmar::ZipFormat {

/// A number of 2, 4 or 8 bytes. Bytes from the start of its structure.
struct Field {
    std::int64_t offset;
    std::int64_t length;
    constexpr std::int64_t end() const { return offset + length; }
};

/// The value of \p field in the structure that begins at \p start. What lies outside the bytes is zero.
inline std::uint64_t number(const ByteReader& bytes, std::int64_t start, Field field) {
    switch (field.length) {
    case 2: return bytes.u16(start + field.offset);
    case 4: return bytes.u32(start + field.offset);
    default: return bytes.u64(start + field.offset);
    }
}

/// Fields whose value does not fit hold these; the ZIP64 structures then have it (4.4.1.4).
inline constexpr std::uint64_t overflow16 = 0xFFFF;
inline constexpr std::uint64_t overflow32 = 0xFFFF'FFFF;

/// 4.3.16. A comment follows.
namespace EndOfCentralDirectory {
inline constexpr DataView signature = "PK\x05\x06";
inline constexpr std::int64_t size = 22;
inline constexpr std::int64_t maxCommentBytes = 0xFFFF;
inline constexpr Field totalEntries{10, 2};
inline constexpr Field directorySize{12, 4};
inline constexpr Field directoryOffset{16, 4}; ///< from the start of the file
static_assert(directoryOffset.end() <= size);
} // namespace EndOfCentralDirectory

/// 4.3.15. Stands right before the end of central directory record.
namespace Zip64Locator {
inline constexpr DataView signature = "PK\x06\x07";
inline constexpr std::int64_t size = 20;
inline constexpr Field recordOffset{8, 8}; ///< from the start of the file
static_assert(recordOffset.end() <= size);
} // namespace Zip64Locator

/// 4.3.14. Extensible data may follow.
namespace Zip64EndOfCentralDirectory {
inline constexpr DataView signature = "PK\x06\x06";
inline constexpr std::int64_t size = 56;
inline constexpr Field totalEntries{32, 8};
inline constexpr Field directorySize{40, 8};
inline constexpr Field directoryOffset{48, 8};
static_assert(directoryOffset.end() == size);
} // namespace Zip64EndOfCentralDirectory

/// 4.3.12. Name, extra field and comment follow.
namespace CentralFileHeader {
inline constexpr DataView signature = "PK\x01\x02";
inline constexpr std::int64_t size = 46;
inline constexpr Field versionMadeBy{4, 2}; ///< the upper byte is the host, whose attributes are external
inline constexpr Field flags{8, 2};
inline constexpr Field time{12, 2}; ///< MS-DOS: hours in 5 bits, minutes in 6, seconds by two in 5
inline constexpr Field date{14, 2}; ///< MS-DOS: years since 1980 in 7 bits, month in 4, day in 5
inline constexpr Field compressedSize{20, 4};
inline constexpr Field uncompressedSize{24, 4};
inline constexpr Field nameLength{28, 2};
inline constexpr Field extraLength{30, 2};
inline constexpr Field commentLength{32, 2};
inline constexpr Field externalAttributes{38, 4}; ///< Unix: the mode in the upper half; MS-DOS: the lower byte
static_assert(externalAttributes.end() <= size);

inline constexpr std::uint64_t encryptedFlag = 0x1;
inline constexpr std::uint64_t unixHost = 3;
inline constexpr std::uint64_t directoryAttribute = 0x10; ///< of MS-DOS
inline constexpr std::uint64_t modeKind = 0xF000;         ///< S_IFMT of Unix
inline constexpr std::uint64_t modeDirectory = 0x4000;
inline constexpr std::uint64_t modeSymbolicLink = 0xA000;
} // namespace CentralFileHeader

/// 4.5.1. One block of an extra field; its data follows.
namespace ExtraBlock {
inline constexpr std::int64_t size = 4;
inline constexpr Field id{0, 2};
inline constexpr Field dataLength{2, 2};
static_assert(dataLength.end() == size);
} // namespace ExtraBlock

/// 4.5.3. The values of those fields that hold `overflow32`, in this order, 8 bytes each.
namespace Zip64Sizes {
inline constexpr std::uint64_t id = 0x0001;
inline constexpr std::int64_t minDataLength = 8;
inline constexpr std::int64_t valueLength = 8;
} // namespace Zip64Sizes

/// Info-ZIP's extrafld.txt, "Extended Timestamp Extra Field". Unlike the MS-DOS fields it knows the moment.
namespace ExtendedTimestamp {
inline constexpr std::uint64_t id = 0x5455;
inline constexpr std::int64_t minDataLength = 5;
inline constexpr Field modified{1, 4}; ///< unsigned seconds since 1970-01-01 UTC; behind a byte of flags
inline constexpr std::uint64_t modifiedFlag = 0x1;
} // namespace ExtendedTimestamp

} // namespace quillmar::ZipFormat
