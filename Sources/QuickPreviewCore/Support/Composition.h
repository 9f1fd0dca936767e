#pragma once

#include "Support/FileKind.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quillmar {

/// The share of one kind in what an item holds.
struct CompositionPart {
    FileKind kind = FileKind::other;
    std::int64_t size = 0;  ///< bytes
    std::int64_t count = 0; ///< items
    bool operator==(const CompositionPart&) const = default;
};

/// Adds up what items of each kind hold.
class Composition {
public:
    Composition();

    /// An item of \p size bytes. Sums stop at the limits of 64 bits.
    void add(FileKind kind, std::int64_t size);

    /// The kinds that were added; the largest first, equal ones in `FileKind`'s order.
    std::vector<CompositionPart> parts() const;

private:
    std::array<CompositionPart, allFileKinds.size()> parts_;
};

} // namespace quillmar
