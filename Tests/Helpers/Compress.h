#pragma once

#include "Platform/Data.h"

#include <cstddef>

/// Compressed samples, made by the libraries whose work is tested against.
namespace quillmar {

/// One gzip member, by zlib.
Data gzip(DataView data);

/// One xz stream. With \p blockBytes its blocks hold so much each and state their sizes.
Data xz(DataView data, std::size_t blockBytes = 0);

} // namespace quillmar
