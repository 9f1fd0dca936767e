#pragma once

#include "Pages/ArchiveNode.h"
#include "Support/SeededHash.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmar {

/// Finds a folder's child by its name. One table for a whole tree: archives have many small folders.
class ChildTable {
public:
    ChildTable();

    std::optional<NodeIndex> find(NodeIndex parent, std::string_view name) const;

    /// \p parent has no child of that \p name yet. The table keeps the view.
    void insert(NodeIndex parent, std::string_view name, NodeIndex child);

private:
    struct Child {
        std::string_view name;
        NodeIndex parent;
        NodeIndex child;
    };
    /// Small, so that the slots of most archives fit into the processor's cache.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t place = 0; ///< in `children_`; 0: the slot is free
    };

    std::uint32_t hashOf(NodeIndex parent, std::string_view name) const;
    void place(Slot slot);
    void grow();

    SeededHash hash_;
    std::vector<Child> children_; ///< the first is none
    std::vector<Slot> slots_;     ///< their number is a power of two; a child is in the first that was free
                                  ///< from its hash on
};

} // namespace quillmar
