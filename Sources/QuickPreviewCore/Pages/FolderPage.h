#pragma once

#include "Folder/FolderSummary.h"
#include "Support/PreviewAssets.h"

#include <cstddef>
#include <string>

/// The page of a folder: what is in it, the largest first.
namespace quillmar::FolderPage {

/// The whole document.
std::string html(const FolderSummary& summary, PreviewAssets& assets);

/// Rows that are listed; the rest are counted.
inline constexpr std::size_t maxRows = 1'000;

} // namespace quillmar::FolderPage
