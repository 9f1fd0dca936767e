#pragma once

#include "Platform/Data.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillmar {

/// Archives that make a careless reader search again what it has searched, believe what it is told, or hold far
/// more than it has read.
struct HostileArchive {
    std::string name;
    std::size_t largest; ///< size worth measuring: bytes of the archive, unpacked where it is compressed
    std::function<Data(std::size_t bytes)> archive; ///< of about so many bytes
};

using HostileArchives = std::vector<HostileArchive>;

HostileArchives hostileTars();
HostileArchives hostileZips();
HostileArchives hostileCompressedFiles();

/// All of them.
HostileArchives hostileArchives();

} // namespace quillmar
