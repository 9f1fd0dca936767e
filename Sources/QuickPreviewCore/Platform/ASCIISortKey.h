#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// Bytes that compare as \p name, which is ASCII, does in US English: punctuation before digits before letters,
/// digits by their value, lower case before upper case where that is the only difference. Equal to the order of
/// ICU's collator as `naturalOrder` sets it up, which takes longer to open than a small preview.
std::string asciiSortKey(std::string_view name);

} // namespace quillmar
