#pragma once

#include "Platform/Data.h"

#include <cstddef>
#include <cstdint>
#include <optional>

/// One header block of a tar archive (POSIX.1, pax, "ustar Interchange Format").
namespace quillmar::TarHeader {

/// Bytes. Everything in a tar archive takes whole blocks.
inline constexpr std::size_t blockSize = 512;

/// Bytes from the block's start.
struct Field {
    std::size_t offset;
    std::size_t length;
};
inline constexpr Field nameField{0, 100};
inline constexpr Field sizeField{124, 12};
inline constexpr Field modifiedField{136, 12}; ///< seconds since 1970-01-01 UTC
inline constexpr Field checksumField{148, 8};
inline constexpr Field typeField{156, 1};
inline constexpr Field magicField{257, 5}; ///< "ustar", of the POSIX form and the GNU form alike
inline constexpr Field prefixField{345, 155};
static_assert(prefixField.offset + prefixField.length <= blockSize);

/// True if \p block is one block and carries its own sum; no magic is required.
bool isHeader(DataView block);

/// The value of a numeric field: octal digits, or base 256 when the top bit of its first byte is set (GNU). A
/// blank field is 0. None when the text is no number. Base 256 knows no sign and stops at the limit of 64 bits.
std::optional<std::int64_t> number(DataView block, Field field);

/// The bytes of a text field up to the first zero.
DataView text(DataView block, Field field);

} // namespace quillmar::TarHeader
