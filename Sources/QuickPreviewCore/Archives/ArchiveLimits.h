#pragma once

#include <cstddef>
#include <cstdint>

/// What the archive readers take of a file, whatever it says.
namespace quillmar::ArchiveLimits {

/// Entries in one listing. Pages draw far fewer rows; more only costs memory.
inline constexpr std::size_t maxEntries = 20'000;

/// UTF-8 bytes of the normalised paths of one listing. Long names of 20,000 entries could take gigabytes.
inline constexpr std::size_t maxPathBytes = 67'108'864;

/// Bytes read to recognise a format.
inline constexpr std::size_t headBytes = 65'536;

/// Bytes of a single compressed file that are decompressed for its page.
inline constexpr std::size_t sampleBytes = 262'144;

/// Bytes read of one tar extension record; the rest is skipped unread.
inline constexpr std::int64_t maxExtensionBytes = 1'048'576;

/// UTF-8 bytes of keys and values of the pax records that wait for the next entry.
inline constexpr std::size_t maxPendingPaxBytes = 4'194'304;

/// Bytes of a zip archive's central directory, which is read in one piece.
inline constexpr std::uint64_t maxDirectoryBytes = 268'435'456;

/// Nodes of an archive's tree, the root not counted. A path of a few bytes may stand for many.
inline constexpr std::size_t maxNodes = 1'000'000;

} // namespace quillmar::ArchiveLimits
