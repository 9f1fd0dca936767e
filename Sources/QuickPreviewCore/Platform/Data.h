#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// Bytes of unknown meaning: of a file, a picture, an archive's record. They become text only through
/// `decodedText`.
using Data = std::string;

/// A view of somebody else's bytes; the function that hands one up names the owner.
using DataView = std::string_view;

} // namespace quillmar
