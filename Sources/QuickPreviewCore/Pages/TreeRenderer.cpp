#include "Pages/TreeRenderer.h"

#include "Pages/ListingRow.h"
#include "Platform/ByteCountFormat.h"
#include "Platform/FileURL.h"
#include "Platform/UniformType.h"
#include "Support/HTML.h"

namespace quillmar {
namespace {

/// A top level with fewer items shows what is in its folders.
constexpr std::size_t shortTopLevel = 4;

std::string_view typeIdentifier(std::string_view extension) {
    if (const auto type = UniformType::ofFile(extension)) return type->identifier();
    return "public.data";
}

void appendSize(std::string& html, const ArchiveNode& node) {
    if (node.isDirectory && node.size == 0)
        html += "<span class=\"muted\">—</span>";
    else
        HTML::appendEscaped(html, formattedSize(node.size));
}

} // namespace

TreeRenderer::Level TreeRenderer::level(NodeIndex folder, bool openSingle) const {
    std::vector<NodeIndex> siblings = tree_.children(folder);
    const bool isSingle = openSingle && siblings.size() == 1;
    return {.siblings = std::move(siblings), .isSingle = isSingle};
}

const std::string& TreeRenderer::iconTag(const ArchiveNode& node) {
    if (node.isDirectory) {
        if (folderIcon_.empty()) folderIcon_ = ListingRow::iconTag(assets_.typeIcon("public.folder"));
        return folderIcon_;
    }
    const std::string_view extension = pathExtension(node.name);
    const auto [known, isNew] = fileIcons_.try_emplace(extension);
    if (isNew) known->second = ListingRow::iconTag(assets_.typeIcon(typeIdentifier(extension)));
    return known->second;
}

void TreeRenderer::appendRow(std::string& html, const ArchiveNode& node, std::size_t depth) {
    const bool isStriped = rowCount_ % 2 == 1;
    ++rowCount_;
    html += node.isDirectory ? "<div class=\"row dir" : "<div class=\"row";
    html += isStriped ? " alt\"" : "\"";
    html += "><span class=\"name\" style=\"--depth:";
    html += std::to_string(depth);
    html += node.isDirectory ? "\"><span class=\"chevron\">▶</span>" : "\"><span class=\"spacer\"></span>";
    html += iconTag(node);
    html += "<span>";
    ListingRow::appendName(html, node.name);
    if (node.isLink) html += " <span class=\"muted\">(link)</span>";
    html += "</span>";
    if (node.isEncrypted) html += "<span class=\"lock\" title=\"Password protected\">🔒</span>";
    html += "</span><span class=\"size\">";
    appendSize(html, node);
    html += "</span><span class=\"date\">";
    ListingRow::appendDate(html, node.modified);
    html += "</span></div>";
}

void TreeRenderer::appendRows(std::string& html) {
    std::vector<Level> levels; // from the top to the folder at hand
    levels.push_back(level(ArchiveTree::root, true));
    while (!levels.empty()) {
        Level& current = levels.back();
        const std::size_t depth = levels.size() - 1;
        if (current.next == current.siblings.size()) {
            if (depth > 0) html += "</details>";
            levels.pop_back();
            continue;
        }
        const NodeIndex index = current.siblings[current.next++];
        const ArchiveNode& node = tree_.node(index);
        if (rowCount_ >= maxRows) {
            omittedCount_ += node.descendantCount + 1;
            continue;
        }
        if (!node.isDirectory) {
            appendRow(html, node, depth);
            continue;
        }
        const bool isShortTop = depth == 0 && current.siblings.size() < shortTopLevel;
        const bool isOpen = openAll_ || current.isSingle || isShortTop;
        html += isOpen ? "<details open><summary class=\"row-wrap\">" : "<details><summary class=\"row-wrap\">";
        appendRow(html, node, depth);
        html += "</summary>";
        levels.push_back(level(index, current.isSingle));
    }
}

} // namespace quillmar
