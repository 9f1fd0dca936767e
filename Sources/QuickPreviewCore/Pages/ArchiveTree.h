#pragma once

#include "Archives/ArchiveEntry.h"
#include "Archives/ArchiveLimits.h"
#include "Pages/ArchiveNode.h"
#include "Pages/ChildTable.h"
#include "Support/Composition.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

struct ArchiveStats {
    std::int64_t files = 0;
    std::int64_t folders = 0;
    std::int64_t size = 0;       ///< bytes, unpacked
    std::int64_t compressed = 0; ///< bytes; 0 where the archive does not say
    bool encrypted = false;      ///< something is
    bool operator==(const ArchiveStats&) const = default;
};

/// The folders and files of an archive, whose entries come in any order, may leave out folders and may repeat.
/// First every `insert`, then `finish` once, then everything else.
///
/// Nodes are plain values in one vector, linked by their places in it: no path is too deep.
class ArchiveTree {
public:
    static constexpr NodeIndex root = 0;

    /// \p maxNodes does not count the root.
    explicit ArchiveTree(std::size_t maxNodes = ArchiveLimits::maxNodes);

    /// Adds \p entry and the folders on its path. A path that is already there takes over the entry's values;
    /// names are the same when they are canonically equivalent. False, with nothing changed, when the tree
    /// would get too large. The tree keeps views of \p entry's path, which must outlive it unmoved.
    bool insert(const ArchiveEntry& entry);
    bool insert(ArchiveEntry&&) = delete;

    /// Sums and counts what is in each folder; what the archive says of folders is replaced.
    void finish();

    const ArchiveNode& node(NodeIndex index) const { return nodes_[index]; }

    /// What is in \p folder as a file manager lists it: folders, then files, each by the natural order of their
    /// names. Sorted when asked, because a page draws few folders of a large archive.
    std::vector<NodeIndex> children(NodeIndex folder) const;

    /// Of everything but the root.
    ArchiveStats stats() const;

    /// Unpacked bytes by kind, the largest first. An application bundle (a folder "*.app") is one item.
    std::vector<CompositionPart> breakdown() const;

private:
    /// One component of the path that was inserted last.
    struct Step {
        NodeIndex node;
        std::size_t end; ///< byte behind the component
    };

    void keepCommonSteps(std::string_view path);
    NodeIndex append(NodeIndex parent, std::string_view name);

    std::size_t maxNodes_;
    std::vector<ArchiveNode> nodes_;
    ChildTable children_;                    ///< by their canonical names
    std::deque<std::string> canonicalNames_; ///< those that are no views of a path
    std::string_view lastPath_;
    std::vector<Step> lastSteps_;
};

} // namespace quillmar
