#include "Pages/ArchiveTree.h"

#include "Platform/FileURL.h"
#include "Platform/NaturalOrder.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"
#include "Platform/UniformType.h"
#include "Support/SaturatingSum.h"
#include "Support/TypesByExtension.h"

#include <algorithm>

namespace quillmar {
namespace {

struct Component {
    std::string_view name; ///< empty behind the last one
    std::size_t end;       ///< byte behind it
};

/// The component of \p path that begins at byte \p position or behind the slashes there.
Component componentAt(std::string_view path, std::size_t position) {
    const std::size_t start = std::min(path.find_first_not_of('/', position), path.size());
    const std::size_t end = std::min(path.find('/', start), path.size());
    return {path.substr(start, end - start), end};
}

std::size_t countComponents(std::string_view path) {
    std::size_t count = 0;
    for (Component next = componentAt(path, 0); !next.name.empty(); next = componentAt(path, next.end)) ++count;
    return count;
}

/// The canonical form of \p name: a view of \p name itself, else of \p room.
std::string_view canonicalName(std::string_view name, std::string& room) {
    if (UTF8::isASCII(name)) return name;
    room = canonicalForm(std::string(name));
    return room == name ? name : room;
}

bool isApplicationBundle(const ArchiveNode& node) { return node.isDirectory && node.name.ends_with(".app"); }

} // namespace

ArchiveTree::ArchiveTree(std::size_t maxNodes) : maxNodes_(maxNodes) {
    nodes_.emplace_back().isDirectory = true;
}

/// Archives mostly list folder by folder, so that a path begins as the one before it and needs no look-up for
/// that part.
void ArchiveTree::keepCommonSteps(std::string_view path) {
    const auto [difference, unused] = std::ranges::mismatch(lastPath_, path);
    const auto common = static_cast<std::size_t>(difference - lastPath_.begin());
    const auto isShared = [&](std::size_t end) {
        return end <= common && (end == path.size() || path[end] == '/');
    };
    while (!lastSteps_.empty() && !isShared(lastSteps_.back().end)) lastSteps_.pop_back();
    lastPath_ = path;
}

NodeIndex ArchiveTree::append(NodeIndex parent, std::string_view name) {
    std::string room;
    std::string_view canonical = canonicalName(name, room);
    if (canonical.data() == room.data()) canonical = canonicalNames_.emplace_back(std::move(room));

    const auto index = static_cast<NodeIndex>(nodes_.size());
    ArchiveNode& node = nodes_.emplace_back();
    node.name = name;
    node.parent = parent;
    children_.insert(parent, canonical, index);
    return index;
}

bool ArchiveTree::insert(const ArchiveEntry& entry) {
    const std::string_view path = entry.path;
    keepCommonSteps(path);
    Step last = lastSteps_.empty() ? Step{root, 0} : lastSteps_.back();
    const auto follow = [&](NodeIndex node, const Component& component) {
        last = {node, component.end};
        lastSteps_.push_back(last);
    };

    Component next = componentAt(path, last.end);
    for (std::string room; !next.name.empty(); next = componentAt(path, next.end)) {
        const auto found = children_.find(last.node, canonicalName(next.name, room));
        if (!found) break;
        follow(*found, next);
    }
    if (countComponents(path.substr(last.end)) > maxNodes_ - (nodes_.size() - 1)) return false;
    for (; !next.name.empty(); next = componentAt(path, next.end)) {
        nodes_[last.node].isDirectory = true; // even if it came as a file
        follow(append(last.node, next.name), next);
    }
    if (last.node == root) return true; // nothing but slashes

    ArchiveNode& node = nodes_[last.node];
    node.isDirectory = node.isDirectory || entry.isDirectory;
    node.size = entry.size;
    node.compressedSize = entry.compressedSize.value_or(0);
    if (entry.modified) node.modified = entry.modified;
    node.isEncrypted = entry.isEncrypted;
    node.isLink = entry.isLink;
    return true;
}

void ArchiveTree::finish() {
    for (ArchiveNode& node : nodes_) {
        if (!node.isDirectory) continue;
        node.size = 0;
        node.compressedSize = 0;
        node.isEncrypted = false;
    }
    for (std::size_t i = nodes_.size(); i-- > 1;) { // children before their parents
        ArchiveNode& node = nodes_[i];
        ArchiveNode& parent = nodes_[node.parent];
        parent.size = saturatingSum(parent.size, node.size);
        parent.compressedSize = saturatingSum(parent.compressedSize, node.compressedSize);
        parent.isEncrypted = parent.isEncrypted || node.isEncrypted;
        parent.descendantCount += node.descendantCount + 1;
        node.nextSibling = parent.firstChild;
        parent.firstChild = static_cast<NodeIndex>(i);
    }
}

std::vector<NodeIndex> ArchiveTree::children(NodeIndex folder) const {
    std::vector<NodeIndex> folders;
    std::vector<NodeIndex> files;
    for (NodeIndex child = nodes_[folder].firstChild; child != 0; child = nodes_[child].nextSibling)
        (nodes_[child].isDirectory ? folders : files).push_back(child);

    std::vector<NodeIndex> sorted;
    sorted.reserve(folders.size() + files.size());
    for (const auto& group : {std::cref(folders), std::cref(files)}) {
        std::vector<std::string_view> names;
        names.reserve(group.get().size());
        for (const NodeIndex child : group.get()) names.push_back(nodes_[child].name);
        for (const std::size_t place : naturalOrder(names)) sorted.push_back(group.get()[place]);
    }
    return sorted;
}

ArchiveStats ArchiveTree::stats() const {
    const ArchiveNode& whole = nodes_[root];
    const auto folders = std::ranges::count_if(nodes_, &ArchiveNode::isDirectory) - 1; // without the root
    return {.files = whole.descendantCount - folders,
            .folders = folders,
            .size = whole.size,
            .compressed = whole.compressedSize,
            .encrypted = whole.isEncrypted};
}

std::vector<CompositionPart> ArchiveTree::breakdown() const {
    Composition composition;
    TypesByExtension types;
    std::vector<bool> isClosed(nodes_.size()); // bundles and what is in them
    for (std::size_t i = 1; i < nodes_.size(); ++i) {
        const ArchiveNode& node = nodes_[i];
        const bool isInBundle = isClosed[node.parent];
        isClosed[i] = isInBundle || isApplicationBundle(node);
        if (isInBundle || (node.isDirectory && !isClosed[i])) continue;
        composition.add(types.ofName(node.name).kind, node.size);
    }
    return composition.parts();
}

} // namespace quillmar
