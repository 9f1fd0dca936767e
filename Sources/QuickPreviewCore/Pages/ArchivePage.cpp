#include "Pages/ArchivePage.h"

#include "Pages/ArchiveTree.h"
#include "Pages/ListingRow.h"
#include "Pages/PageTemplate.h"
#include "Pages/TreeRenderer.h"
#include "Platform/ByteCountFormat.h"
#include "Platform/IntegerFormat.h"
#include "Support/HTML.h"

#include <algorithm>

namespace quillmar::ArchivePage {
namespace {

/// Items. A tree of no more than these is shown with every folder open.
constexpr std::int64_t maxOpenItems = 80;

/// Bytes of markup in a row, its name included: an estimate from real pages.
constexpr std::size_t rowBytes = 320;

/// False for the resource forks and folder settings that macOS adds to an archive.
bool isListed(std::string_view path) {
    path = path.substr(0, path.find_last_not_of('/') + 1);
    path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    const std::string_view first = path.substr(0, path.find('/'));
    const std::string_view last = path.substr(path.rfind('/') + 1);
    return first != "__MACOSX" && last != ".DS_Store" && !last.starts_with("._");
}

/// Inserts what is listed of \p entries; the number of those, filtered or not, that the tree had room for.
std::size_t fill(ArchiveTree& tree, const std::vector<ArchiveEntry>& entries) {
    std::size_t read = 0;
    for (const ArchiveEntry& entry : entries) {
        if (isListed(entry.path) && !tree.insert(entry)) break;
        ++read;
    }
    tree.finish();
    return read;
}

/// How large the archive is and what it grows to. Only a zip archive says what its contents take inside.
std::string sizeFact(ArchiveFormat format, const ArchiveStats& stats, std::int64_t archiveSize) {
    const std::string extracted = formattedSize(stats.size) + " extracted";
    const bool isCompressed =
        format == ArchiveFormat::zip && stats.compressed > 0 && stats.compressed < stats.size;
    return isCompressed ? formattedSize(archiveSize) + " → " + extracted : extracted;
}

std::string header(const ArchiveListing& listing, const ArchiveStats& stats, const FileURL& url,
                   std::int64_t archiveSize, PreviewAssets& assets) {
    std::vector<std::string> badges;
    if (stats.encrypted) badges.emplace_back("Password protected");
    return PageTemplate::header(
        assets.fileIcon(url, "public.archive"), url.lastPathComponent(),
        {std::string(displayName(listing.format)),
         HTML::count(stats.files, "file") + " in " + HTML::count(stats.folders, "folder"),
         sizeFact(listing.format, stats, archiveSize)},
        badges);
}

std::string figures(const ArchiveStats& stats, std::int64_t archiveSize) {
    const std::int64_t compressed = stats.compressed > 0 ? stats.compressed : archiveSize;
    return PageTemplate::stats({{"Unpacked", formattedSize(stats.size)},
                                {"Compressed", formattedSize(compressed)},
                                {"Items", formattedInteger(stats.files + stats.folders)}});
}

std::string incompleteNotice(std::size_t entriesRead) {
    return PageTemplate::notice("Showing the first " +
                                HTML::count(static_cast<std::int64_t>(entriesRead), "item") +
                                ". The rest of the archive couldn't be read in time, or is damaged.");
}

void appendList(std::string& html, const ArchiveTree& tree, bool openAll, PreviewAssets& assets) {
    html += "<div class=\"list tree\">";
    html += ListingRow::heading;
    TreeRenderer renderer(tree, assets, openAll);
    renderer.appendRows(html);
    ListingRow::appendOmitted(html, renderer.omittedCount());
    html += "</div>";
}

} // namespace

std::string html(const ArchiveListing& listing, const FileURL& url, std::int64_t archiveSize,
                 PreviewAssets& assets) {
    ArchiveTree tree;
    const std::size_t entriesRead = fill(tree, listing.entries);
    const ArchiveStats stats = tree.stats();
    const std::int64_t items = stats.files + stats.folders;

    const std::size_t rows = std::min(static_cast<std::size_t>(items), TreeRenderer::maxRows);
    std::string html = PageTemplate::documentStart(url.lastPathComponent(), "archive", rows * rowBytes);
    html += "<div class=\"page\">";
    html += header(listing, stats, url, archiveSize, assets);
    html += figures(stats, archiveSize);
    html += PageTemplate::composition(tree.breakdown());
    if (!listing.isComplete || entriesRead < listing.entries.size()) html += incompleteNotice(entriesRead);
    if (items == 0)
        html += PageTemplate::notice("This archive is empty.");
    else
        appendList(html, tree, items <= maxOpenItems, assets);
    html += "</div>";
    return html.append(PageTemplate::documentEnd);
}

} // namespace quillmar::ArchivePage
