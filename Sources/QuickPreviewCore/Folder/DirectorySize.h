#pragma once

#include <cstdint>
#include <optional>

namespace quillmar {

/// Bytes in a folder, as far as they were counted.
struct DirectorySize {
    std::optional<std::int64_t> size; ///< none when measuring never began
    bool isComplete = false;
    bool operator==(const DirectorySize&) const = default;
};

} // namespace quillmar
