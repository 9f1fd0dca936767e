#include "Pages/FolderPage.h"

#include "Pages/ListingRow.h"
#include "Pages/PageTemplate.h"
#include "Platform/ByteCountFormat.h"
#include "Platform/IntegerFormat.h"
#include "Support/DecimalText.h"
#include "Support/HTML.h"

#include <algorithm>

namespace quillmar::FolderPage {
namespace {

using Items = std::vector<const FolderItem*>;

/// Bytes of markup in a row, its name included: an estimate from real pages.
constexpr std::size_t rowBytes = 320;

std::string header(const FolderSummary& summary, const Items& visible, PreviewAssets& assets) {
    const std::string total = formattedSize(summary.totalSize);
    std::vector<std::string> facts{HTML::count(static_cast<std::int64_t>(visible.size()), "item"),
                                   summary.isComplete ? total : "At least " + total};
    if (summary.hiddenCount() > 0) facts.push_back(formattedInteger(summary.hiddenCount()) + " hidden");
    const auto date = summary.modified ? formattedDate(*summary.modified) : std::nullopt;
    if (date) facts.push_back("Modified " + *date);
    return PageTemplate::header(assets.fileIcon(summary.url, "public.folder"), summary.url.lastPathComponent(),
                                facts, {});
}

std::string hero(const FolderSummary& summary, const Items& visible) {
    const std::string total = formattedSize(summary.totalSize);
    return PageTemplate::hero(summary.isComplete ? total : "≥ " + total,
                              HTML::count(static_cast<std::int64_t>(visible.size()), "item"));
}

/// Folders and applications have icons of their own; all others share those of their types.
std::optional<std::string> icon(const FolderItem& item, PreviewAssets& assets) {
    if (item.isFolder) return assets.fileIcon(item.url, "public.folder");
    const std::string_view type = item.typeIdentifier.value_or("public.data");
    return item.kind == FileKind::apps ? assets.fileIcon(item.url, type) : assets.typeIcon(type);
}

/// What a bar of full width stands for, in bytes: the size of the largest item, the first of all.
double fullWidth(const Items& visible) {
    return static_cast<double>(std::max<std::int64_t>(visible.front()->size.value_or(1), 1));
}

/// The size in words and as a bar.
void appendSize(std::string& html, const FolderItem& item, double full) {
    if (!item.size) {
        html += "<span class=\"muted\">—</span><small><i style=\"width:0%\"></i></small>";
        return;
    }
    HTML::appendEscaped(html, formattedSize(*item.size));
    if (!item.isSizeComplete) html += '+';
    html += "<small><i style=\"width:";
    html += decimalText(static_cast<double>(*item.size) / full * 100, 1);
    html += "%\"></i></small>";
}

void appendRow(std::string& html, const FolderItem& item, double full, PreviewAssets& assets) {
    html += "<div class=\"row\"><span class=\"name\">";
    html += ListingRow::iconTag(icon(item, assets));
    html += "<span>";
    ListingRow::appendName(html, item.name);
    html += "</span></span><span class=\"size\">";
    appendSize(html, item, full);
    html += "</span><span class=\"date\">";
    ListingRow::appendDate(html, item.modified);
    html += "</span></div>";
}

/// \p visible is not empty.
void appendList(std::string& html, const Items& visible, PreviewAssets& assets) {
    html += "<div class=\"list\">";
    html += ListingRow::heading;
    const std::size_t rows = std::min(visible.size(), maxRows);
    const double full = fullWidth(visible);
    for (std::size_t i = 0; i < rows; ++i) appendRow(html, *visible[i], full, assets);
    ListingRow::appendOmitted(html, static_cast<std::int64_t>(visible.size() - rows));
    html += "</div>";
}

} // namespace

std::string html(const FolderSummary& summary, PreviewAssets& assets) {
    const Items visible = summary.visibleItems();
    const std::size_t rows = std::min(visible.size(), maxRows);
    std::string html = PageTemplate::documentStart(summary.url.lastPathComponent(), "folder", rows * rowBytes);
    html += "<div class=\"page\">";
    html += header(summary, visible, assets);
    html += hero(summary, visible);
    html += PageTemplate::composition(summary.breakdown());
    if (!summary.isComplete)
        html += PageTemplate::notice("This folder is too big to measure completely in a preview. "
                                     "Sizes marked + are at least that much.");
    if (visible.empty())
        html += PageTemplate::notice("This folder is empty.");
    else
        appendList(html, visible, assets);
    html += "</div>";
    return html.append(PageTemplate::documentEnd);
}

} // namespace quillmar::FolderPage
