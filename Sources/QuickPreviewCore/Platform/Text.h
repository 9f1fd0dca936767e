#pragma once

#include "Platform/Data.h"

#include <string>
#include <string_view>

/// Text is UTF-8 in `std::string`; a character is a Unicode code point.
namespace quillmar {

/// The text of a file's \p data: UTF-8, one leading byte order mark dropped, every ill-formed sequence replaced
/// by one U+FFFD per maximal subpart (the Unicode standard, 3.9). Valid data is moved, not copied.
std::string decodedText(Data data);

/// The same for names inside archives and file systems, which keep a byte order mark.
std::string repairedText(Data data);

/// The text of \p data in code page 437, whose lower half is ASCII: names in zip archives of old.
std::string textFromCodePage437(DataView data);

/// The text of \p data in ISO Latin-1: names in gzip headers (RFC 1952, 2.3.1).
std::string textFromLatin1(DataView data);

/// Unicode's full lower-case mapping, in no particular language.
std::string lowercased(std::string_view text);

/// The form (NFC) in which canonically equivalent texts are the same bytes. A text longer than
/// `maxCanonicalBytes` is its own form, so that a hostile name costs no more than its bytes.
std::string canonicalForm(std::string text);

/// UTF-8 bytes. Far above any real file name (255) or label.
inline constexpr std::size_t maxCanonicalBytes = 1'024;

} // namespace quillmar
