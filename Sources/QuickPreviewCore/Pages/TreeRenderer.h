#pragma once

#include "Pages/ArchiveTree.h"
#include "Support/PreviewAssets.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// Draws an archive's tree as rows; folders are `details` elements, which open and close without script. For
/// one page only.
class TreeRenderer {
public:
    /// Rows drawn, folders and files at every depth. More would keep the browser from showing the page at once.
    static constexpr std::size_t maxRows = 3'000;

    /// \p tree is finished; it and \p assets must outlive the renderer. With \p openAll every folder is open;
    /// without, a short top level is, and a chain of folders that hold nothing but the next.
    TreeRenderer(const ArchiveTree& tree, PreviewAssets& assets, bool openAll)
        : tree_(tree), assets_(assets), openAll_(openAll) {}

    /// Appends the rows of everything in the tree.
    void appendRows(std::string& html);

    /// Nodes that were not drawn because of `maxRows`.
    std::int64_t omittedCount() const { return omittedCount_; }

private:
    /// The contents of a folder that is being drawn.
    struct Level {
        std::vector<NodeIndex> siblings;
        std::size_t next = 0; ///< place in `siblings`
        bool isSingle;        ///< one sibling, in a chain of such that starts at the top
    };

    Level level(NodeIndex folder, bool openSingle) const;
    void appendRow(std::string& html, const ArchiveNode& node, std::size_t depth);
    const std::string& iconTag(const ArchiveNode& node);

    const ArchiveTree& tree_;
    PreviewAssets& assets_;
    bool openAll_;
    std::size_t rowCount_ = 0;
    std::int64_t omittedCount_ = 0;
    std::map<std::string_view, std::string> fileIcons_; ///< image tags by path extension
    std::string folderIcon_;                            ///< the tag; empty until it is needed
};

} // namespace quillmar
