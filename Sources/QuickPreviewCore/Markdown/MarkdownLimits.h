#pragma once

#include <cstddef>
#include <cstdint>

/// What a Markdown document can make of itself, whatever it says.
namespace quillmar::MarkdownLimits {

/// Bytes of a document that are read; the rest is not shown.
inline constexpr std::size_t maxDocumentBytes = 2'097'152;

/// Bytes of the text that is parsed, its tabs expanded. Places in it and in its HTML, which is at most
/// `mostGrowth` times as long, are kept in 32 bits. No host reads that much.
inline constexpr std::size_t maxTextBytes = 134'217'728;
/// Bytes of HTML for a byte of text, at most: of quotes in quotes.
inline constexpr std::size_t mostGrowth = 27;

/// Bytes of one image file. Larger files are not opened.
inline constexpr std::int64_t maxImageBytes = 8'388'608;

/// Bytes of all images of one preview, every reference counted: a line of text can name a large file again.
inline constexpr std::int64_t maxAttachedImageBytes = 268'435'456;

/// Cells of one document's tables that are written for missing ones. A wide header makes every short row wide.
inline constexpr std::size_t maxPaddingCells = 262'144;

/// UTF-8 bytes of destination and title of every reference that one document resolves. Three bytes of text
/// can repeat a definition of a megabyte.
inline constexpr std::size_t maxResolvedReferenceBytes = 4'194'304;

// Room is made once, at the start, for nearly all documents: memory that is not written costs nothing, but
// moving what has grown does.

/// Bytes of HTML for a byte of text in nearly all documents.
inline constexpr std::size_t likelyGrowth = 12;
/// Bytes of HTML for which room is made.
inline constexpr std::size_t roomAhead = 33'554'432;
/// Blocks for which room is made; a document has at most one for a byte, and one more.
inline constexpr std::size_t blocksAhead = maxDocumentBytes + 1;
/// Quotes and lists in each other for which room is made, at most one for every other byte.
inline constexpr std::size_t nestingAhead = maxDocumentBytes / 2;

} // namespace quillmar::MarkdownLimits
